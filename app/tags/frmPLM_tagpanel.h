// The tag panel of the main window: the boxes of both tags of the selected file, or of all selected
// files, and the data of its audio stream. What its rules are is TagPanel's matter.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <memory>

#include "app/tags/tag_panel.h"

class QAbstractButton;
class QComboBox;
class QLineEdit;

namespace mdlPLM {

namespace Ui {
class frmPLM_tagpanel;
}

class frmPLM_tagpanel : public QWidget {
    Q_OBJECT

public:
    frmPLM_tagpanel(const Settings& settings, const ReplacementList& replacements,
                    QWidget* parent = nullptr);
    ~frmPLM_tagpanel() override;

    [[nodiscard]] const TagPanel& Panel() const { return panel_; }

    void Clear();
    void ShowFile(TextView path, ErrorSink& errors);
    void ShowBatch();

    /// What is being played, for the tool tip of the picture; empty: nothing is.
    void ShowPlayed(const QString& toolTip);

    void CopyFromV1();
    void CopyToV1();
    PanelSave SaveID3();
    PanelSave FixID3(TextView inPattern);
    TagRun SaveAll(std::vector<Text> paths);
    [[nodiscard]] TagRun FixAll(std::vector<Text> paths, TextView inPattern) const;
    /// While other work is under way: nothing is saved, and the search for the header of the sound
    /// waits, so that the work is not held up by it.
    void Rest(bool rest);
    void SetOtherFrames(Bytes frames);

    /// The buttons that menu entries stand for.
    [[nodiscard]] QAbstractButton& CopyFromV1Button() const;
    [[nodiscard]] QAbstractButton& CopyToV1Button() const;
    [[nodiscard]] QAbstractButton& MoreButton() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// Something was typed, ticked or copied.
    void Edited();
    void SaveClicked();
    void FixClicked();
    void MoreClicked();

private:
    void SetUpBoxes();
    void SetUpGenres(QComboBox& box, bool v2Spelling);
    void ConnectButtons();
    void Box_Change(TagBox box, const QString& text);
    void Show();
    void ShowStream();
    void SearchStream();

    TagPanel panel_;
    std::unique_ptr<Ui::frmPLM_tagpanel> ui_;
    std::array<QLineEdit*, TagBoxCount> boxes_{};
    QTimer searching_{this};
    bool searchRests_ = false;
    bool showing_ = false;  ///< the boxes are being filled, nobody types
};

}  // namespace mdlPLM
