#include "tests/support/qt_swedish.h"

#include <QAbstractItemView>
#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QWidget>
#include <QXmlStreamReader>
#include <algorithm>
#include <stdexcept>

#include "tests/support/places.h"

namespace mdlPLM {

namespace {

/// Texts that are the same in every language: names, formats and what was laid down for good.
constexpr const char* SameEverywhere[] = {
    "Pellmore",
    "PLM",
    "\\d+ files( \\([\\d.]+ Mb\\))?",
    "MPEG .*|Layer .*|layer .*|\\d+kbps|\\d+Hz.*",
    "(Copyrighted|Original|CRCs|Emphasis|ID3v1|ID3v2|Size|Length|Header):.*",
    "Open: .*|Now Playing: .*",
    "/.*",            // a path
    ".*\\.mp3( .*)?"  // a file, alone or in a line of the list
};

/// What is shown of a text: without the marks of its keys.
QString Shown(QString text) {
    text.remove(QRegularExpression(QStringLiteral(" ?\\(&\\w\\)")));
    return text.remove(u'&').simplified();
}

/// Matches the translation with any value in the places for them.
QString AnyValues(const QString& translation) {
    QString pattern = QRegularExpression::escape(Shown(translation));
    pattern.replace(QRegularExpression(QStringLiteral("\\\\%(L?\\d|n|v|m)")), QStringLiteral(".*"));
    return pattern;
}

bool IsData(const QObject& object) {
    return qobject_cast<const QLineEdit*>(&object) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&object) != nullptr;
}

void Say(const QObject& object, QStringList& said) {
    for (const char* property :
         {"windowTitle", "toolTip", "statusTip", "whatsThis", "accessibleName",
          "accessibleDescription", "title", "placeholderText", "format"})
        said << object.property(property).toString();
    if (!IsData(object)) said << object.property("text").toString();
}

void SayLines(const QAbstractItemView& list, QStringList& said) {
    for (int row = 0; list.model() != nullptr && row < list.model()->rowCount(); ++row) {
        const QModelIndex line = list.model()->index(row, 0);
        for (const int role : {Qt::ToolTipRole, Qt::AccessibleDescriptionRole})
            said << line.data(role).toString().split(u'\n');
    }
}

}  // namespace

QStringList SaidTexts(const QWidget& window) {
    QStringList said;
    Say(window, said);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        Say(*widget, said);
        if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
            for (int page = 0; page < tabs->count(); ++page) said << tabs->tabText(page);
        if (const auto* list = qobject_cast<const QAbstractItemView*>(widget))
            SayLines(*list, said);
    }
    for (const QAction* entry : window.findChildren<QAction*>()) said << entry->text();
    said.removeDuplicates();
    said.removeAll(QString());
    return said;
}

SwedishTexts::SwedishTexts() {
    for (const char* same : SameEverywhere) patterns_ << QString::fromLatin1(same);
    Read(QStringLiteral("pellmore_sv.ts"));
    Read(QStringLiteral("toolkit_sv.ts"));
    // The reason why a control is at rest stands behind its tool tip.
    const QString one = QStringLiteral("(%1)").arg(patterns_.join(u'|'));
    known_ = QRegularExpression(
        QRegularExpression::anchoredPattern(one + "( " + one + ")?"),
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::DontCaptureOption);
    if (!known_.isValid()) throw std::runtime_error(known_.errorString().toStdString());
}

void SwedishTexts::Read(const QString& file) {
    QFile source(QString::fromStdString(test::SourceFolder()) +
                 QStringLiteral("/app/shared/translations/") + file);
    if (!source.open(QIODevice::ReadOnly)) throw std::runtime_error("no translations");
    QXmlStreamReader reader(&source);
    QStringView holdsText;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) continue;
        if (reader.name() == u"message")
            holdsText = reader.attributes().hasAttribute(QStringLiteral("numerus"))
                            ? u"numerusform"
                            : u"translation";
        if (reader.name() == holdsText) patterns_ << AnyValues(reader.readElementText());
    }
    if (reader.hasError()) throw std::runtime_error(reader.errorString().toStdString());
}

bool SwedishTexts::Knows(const QString& text) const {
    static const QRegularExpression word(QStringLiteral("\\pL\\pL"));
    const auto knows = [this](const QString& part) {
        const QString shown = Shown(part);
        return !shown.contains(word) || known_.match(shown).hasMatch();
    };
    const QStringList lines = text.split(u'\n');
    return knows(text) || std::all_of(lines.begin(), lines.end(), knows);
}

QStringList SwedishTexts::NotSwedish(const QStringList& texts) const {
    QStringList strangers;
    for (const QString& text : texts)
        if (!Knows(text)) strangers << text;
    return strangers;
}

}  // namespace mdlPLM
