// What a window says, held against the Swedish translations.
#pragma once

#include <QRegularExpression>
#include <QStringList>

class QWidget;

namespace mdlPLM {

/// Everything that a window and its menus say: captions, tool tips, names that are read out. Not
/// what a user types into it or keeps in it.
QStringList SaidTexts(const QWidget& window);

class SwedishTexts {
public:
    /// The Swedish of the translations that the program is built with. Throws when there is none.
    SwedishTexts();

    /// True for a translation with any values in it, for one of the texts that are the same in
    /// every language, and for what holds no word.
    [[nodiscard]] bool Knows(const QString& text) const;
    /// Those that are not.
    [[nodiscard]] QStringList NotSwedish(const QStringList& texts) const;

private:
    void Read(const QString& file);

    QRegularExpression known_;
    QStringList patterns_;
};

}  // namespace mdlPLM
