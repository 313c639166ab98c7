// Takes drops of files onto a widget.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

#include "core/text/text.h"

class QDropEvent;
class QWidget;

namespace mdlPLM {

/// Lets `target` (for a list: its viewport) take drops that carry files. A drop is always taken as
/// a copy, whatever the keyboard says: dropping never removes a file from where it was. `take` gets
/// the paths when the drop is over, so that whoever dragged does not wait for it.
class FileDrops : public QObject {
public:
    using Take = std::function<void(std::vector<Text>)>;
    FileDrops(QWidget* target, Take take);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OfferCopy(QDropEvent& event) const;
    void Drop(QDropEvent& event);
    void HandOver();
    Take take_;
    std::vector<Text> dropped_;
    QTimer later_;
    bool carriesFiles_ = false;
};

}  // namespace mdlPLM
