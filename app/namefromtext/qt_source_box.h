// The box of the album text: shows any line ends, while the text behind it keeps its own.
#pragma once

#include <QPlainTextEdit>
#include <vector>

#include "app/namefromtext/source_text.h"

namespace mdlPLM {

class SourceBox : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit SourceBox(QWidget* parent = nullptr);

    [[nodiscard]] const SourceText& Source() const { return source_; }
    /// The selected part of the text; empty when nothing is selected.
    [[nodiscard]] Text SelectedText() const;
    /// Takes a loaded text; the box fills as FillStep is called.
    void Load(TextView text);
    /// Shows the next piece of a text that is coming; false when all of it stands. Until then the
    /// box takes no keys.
    bool FillStep();
    /// Share of a coming text that stands, in percent.
    [[nodiscard]] int FilledPercent() const;
    /// Leaves it at what stands; the rest of the coming text is dropped.
    void StopFilling();
    void TakeLineEndsAsCrLf() { source_.TakeLineEndsAsCrLf(); }
    void ClearText();

signals:
    /// A pasted or dropped text was taken: FillStep shows it. `byKey`: with the key that pastes.
    void TextComing(bool byKey);
    void FilesDropped(const std::vector<Text>& paths);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void TakePasted(const QString& text, bool byKey);
    void BeginFilling(Text shown);
    void EndFilling();
    void FollowEdit(int position, int removed, int added);

    SourceText source_;
    Text coming_;            // still to be shown, from `shown_` on
    std::size_t shown_ = 0;  // characters of it that stand in the box
    QTextCursor place_;      // where the rest goes
    bool filling_ = false;
};

}  // namespace mdlPLM
