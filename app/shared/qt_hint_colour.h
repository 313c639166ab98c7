// Pale texts that stay legible.
#pragma once

class QApplication;
class QPalette;

namespace mdlPLM {

/// True when hints can be read on the background of boxes and lists.
bool HintsAreLegible(const QPalette& palette);

/// Gives hints a paler shade of the text colour where the desktop's own cannot be read: some set
/// every colour of a dark palette but this one.
void MakeHintsLegible(QApplication& application);

}  // namespace mdlPLM
