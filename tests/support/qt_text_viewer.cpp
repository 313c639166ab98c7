#include "tests/support/qt_text_viewer.h"

// Its class is made of its declaration alone.
