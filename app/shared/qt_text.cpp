#include "app/shared/qt_text.h"
