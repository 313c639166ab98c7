// A line of text that is cut short with dots where it has no room.
#pragma once

#include <QLabel>

namespace mdlPLM {

/// Takes the width that it is given and asks for none.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// What is seen of the text.
    [[nodiscard]] QString SeenText() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect Room() const;
};

}  // namespace mdlPLM
