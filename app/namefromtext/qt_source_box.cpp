#include "app/namefromtext/qt_source_box.h"

#include <QClipboard>
#include <QDragLeaveEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>

#include "app/shared/qt_text.h"
#include "app/shared/uri_list.h"

namespace mdlPLM {

namespace {

// Characters that the box takes in a hundredth of a second.
constexpr std::size_t Piece = 16384;

std::vector<Text> FilesOf(const QMimeData& data) {
    const QByteArray list = data.data(QStringLiteral("text/uri-list"));
    return PathsFromUriList(BytesView(list.constData(), static_cast<std::size_t>(list.size())));
}

}  // namespace

SourceBox::SourceBox(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(document(), &QTextDocument::contentsChange, this, &SourceBox::FollowEdit);
}

Text SourceBox::SelectedText() const {
    const QTextCursor cursor = textCursor();
    return source_.Range(static_cast<std::size_t>(cursor.selectionStart()),
                         static_cast<std::size_t>(cursor.selectionEnd()));
}

void SourceBox::Load(TextView text) {
    source_.Load(text);
    filling_ = true;
    setUndoRedoEnabled(false);
    clear();
    BeginFilling(source_.Shown());
}

void SourceBox::ClearText() {
    Load({});
    EndFilling();
}

void SourceBox::BeginFilling(Text shown) {
    filling_ = true;
    setReadOnly(true);
    coming_ = std::move(shown);
    shown_ = 0;
    place_ = textCursor();
}

bool SourceBox::FillStep() {
    if (!filling_) return false;
    if (shown_ > 0) place_.joinPreviousEditBlock();
    place_.insertText(ToQt(TextView(coming_).substr(shown_, Piece)));
    if (shown_ > 0) place_.endEditBlock();
    shown_ = qMin(shown_ + Piece, coming_.size());
    if (shown_ < coming_.size()) return true;
    EndFilling();
    return false;
}

int SourceBox::FilledPercent() const {
    return coming_.empty() ? 100 : static_cast<int>(100 * shown_ / coming_.size());
}

void SourceBox::StopFilling() {
    if (!filling_) return;
    source_.Edit(static_cast<std::size_t>(place_.position()), coming_.size() - shown_, {});
    EndFilling();
}

void SourceBox::EndFilling() {
    filling_ = false;
    coming_.clear();
    setReadOnly(false);
    if (isUndoRedoEnabled()) return;
    setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
}

void SourceBox::FollowEdit(int position, int removed, int added) {
    if (filling_) return;
    QTextCursor cursor(document());
    cursor.setPosition(position);
    // The end of the document, which is no position of the text, may be counted with the rest.
    cursor.setPosition(qMin(position + added, document()->characterCount() - 1),
                       QTextCursor::KeepAnchor);
    source_.Edit(static_cast<std::size_t>(position), static_cast<std::size_t>(removed),
                 FromQt(cursor.selectedText()));
}

void SourceBox::TakePasted(const QString& text, bool byKey) {
    if (isReadOnly()) return;
    const QTextCursor cursor = textCursor();
    const auto start = static_cast<std::size_t>(cursor.selectionStart());
    const auto end = static_cast<std::size_t>(cursor.selectionEnd());
    BeginFilling(source_.Paste(start, end - start, FromQt(text)));
    emit TextComing(byKey);
}

void SourceBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_V && event->modifiers() == Qt::ControlModifier)
        TakePasted(QGuiApplication::clipboard()->text(), true);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void SourceBox::insertFromMimeData(const QMimeData* source) { TakePasted(source->text(), false); }

void SourceBox::dropEvent(QDropEvent* event) {
    const std::vector<Text> files = FilesOf(*event->mimeData());
    if (files.empty()) return QPlainTextEdit::dropEvent(event);
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, files] { emit FilesDropped(files); }, Qt::QueuedConnection);
}

}  // namespace mdlPLM
