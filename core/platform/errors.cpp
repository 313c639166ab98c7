#include "core/platform/errors.h"
