// Keeps characters out of an entry box.
#pragma once

#include "core/text/text.h"

class QLineEdit;

namespace mdlPLM {

/// True for a character that may not be entered. A key press is asked by its character, so that 22
/// is the key that pastes (Ctrl+V).
using IsForbidden = bool (*)(char16_t);

/// Swallows the forbidden keys in `box` and takes forbidden characters out of what is pasted or
/// dropped into it. Line breaks become blanks and NULs go, whatever `forbidden` says. A text that
/// the program sets is left as it is.
void FilterEntry(QLineEdit& box, IsForbidden forbidden = nullptr);

/// The part of FilterEntry that works on the text.
Text FilteredEntry(TextView text, IsForbidden forbidden);

}  // namespace mdlPLM
