// Texts in boxes that may be narrower than they are.
#pragma once

#include <QString>

class QLineEdit;

namespace mdlPLM {

/// Puts a text into a box. While the user types there, the cursor stays where it was, counted from
/// the text's end; any other box shows the beginning of its text.
void SetBoxText(QLineEdit& box, const QString& text);

/// Makes the whole text the box's tool tip while the box is too narrow for it.
void ShowWholeTextAsTip(QLineEdit& box);

}  // namespace mdlPLM
