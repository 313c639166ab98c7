// The status line of the main window: what the last command came to, or how far long work is.
#pragma once

#include <QObject>
#include <functional>

#include "app/list/list_tasks.h"
#include "app/shared/app_context.h"

class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;

namespace mdlPLM {

class StatusLine : public QObject {
    Q_OBJECT

public:
    /// What a run did, one line for each file, made when somebody asks.
    using Details = std::function<Text()>;

    /// Puts its controls into `bar`, the text as far from the bar's end as `indent` says (pixels).
    StatusLine(AppContext& context, QStatusBar& bar, int indent);

    /// Says what a command came to, and what left-overs were removed on the way. It stands until
    /// the next time, but for the time of long work.
    void Say(const QString& text, Details details = {});
    /// Says what left-overs were removed so far, if any.
    void SayRemovedLeftOvers();
    [[nodiscard]] const QString& Said() const { return said_; }

    void ShowProgress(const RunProgress& progress);
    void EndProgress();

signals:
    void StopClicked();

private:
    void Put(const QString& text, Details details);
    void SetUpControls();
    void AddToBar(QWidget& control);
    void cmdDetails_Click();

    AppContext& context_;
    QStatusBar& bar_;
    QLabel* lblStatus_;
    QProgressBar* prgWork_;
    QToolButton* cmdStop_;
    QToolButton* cmdDetails_;
    QString said_;
    Details details_;
};

}  // namespace mdlPLM
