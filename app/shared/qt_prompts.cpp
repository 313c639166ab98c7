#include "app/shared/qt_prompts.h"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

constexpr long long MostLines = 12;

struct BoxLook {
    QMessageBox::Icon Icon;
    QMessageBox::StandardButtons Buttons;
    QMessageBox::StandardButton Safe;
};

QWidget* ActiveWindow() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

QString TitleOf(const Message& message) {
    return message.Title.empty() ? QGuiApplication::applicationDisplayName() : ToQt(message.Title);
}

/// A label draws a CR as a blank.
QString LinesOf(TextView text) { return ToQt(Replace(text, CrLf, u"\n")); }

void ShowLiterally(QWidget& box) {
    for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

/// A short message over a long path would be as narrow as the message.
void GiveRoom(QMessageBox& box) {
    auto* layout = qobject_cast<QGridLayout*>(box.layout());
    if (layout == nullptr || box.informativeText().isEmpty()) return;
    const int width = 60 * box.fontMetrics().averageCharWidth();
    layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
}

QMessageBox::StandardButton ShowBox(const Message& message, const BoxLook& look) {
    const BoxText body = FitIntoBox(message.Body);
    const BoxText detail = FitIntoBox(message.Detail);
    QMessageBox box(look.Icon, TitleOf(message), LinesOf(body.Shown), look.Buttons, ActiveWindow());
    box.setInformativeText(LinesOf(detail.Shown));
    if (!body.Rest.empty() || !detail.Rest.empty())
        box.setDetailedText(LinesOf(body.Rest.empty() ? detail.Rest : body.Rest));
    GiveRoom(box);
    box.setDefaultButton(look.Safe);
    box.setEscapeButton(look.Safe);
    ShowLiterally(box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

BoxText FitIntoBox(TextView text) {
    long long lines = 1;
    std::size_t cut = 0;
    // Behind the break that ends the text there is no further line.
    const TextView whole = text.substr(0, text.find_last_not_of(u"\r\n") + 1);
    for (std::size_t end = whole.find(u'\n'); end != TextView::npos;
         end = whole.find(u'\n', end + 1))
        if (++lines == MostLines) cut = end + 1;
    if (lines <= MostLines) return {Text(text), {}};
    const QString more = QCoreApplication::translate("QtPrompts", "\u2026 %1 more lines");
    return {Text(text.substr(0, cut)) + FromQt(more.arg(lines - MostLines + 1)), Text(text)};
}

Answer QtPrompts::AskYesNo(const Message& question) {
    const BoxLook look{QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    return ShowBox(question, look) == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

Answer QtPrompts::AskYesNoCancel(const Message& question) {
    const BoxLook look{QMessageBox::Question,
                       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                       QMessageBox::Cancel};
    switch (ShowBox(question, look)) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

void QtPrompts::Inform(const Message& message) {
    ShowBox(message, {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok});
}

void QtPrompts::Critical(const Message& message) {
    ShowBox(message, {QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok});
}

std::optional<Text> QtPrompts::AskText(const Message& question) {
    QInputDialog box(ActiveWindow());
    box.setWindowTitle(TitleOf(question));
    box.setLabelText(LinesOf(question.Body));
    ShowLiterally(box);
    if (auto* entry = box.findChild<QLineEdit*>()) entry->setAccessibleName(box.labelText());
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    return FromQt(box.textValue());
}

void BoxErrors::Report(ErrorNumber number, TextView path) {
    ask_.Critical({{}, ErrorMessage(number), Text(path)});
}

}  // namespace mdlPLM
