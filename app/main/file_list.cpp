#include "app/main/file_list.h"
