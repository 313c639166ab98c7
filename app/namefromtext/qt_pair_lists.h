// The two lists of the name-from-text window, each with its buttons and its counter.
#pragma once

#include <QObject>

#include "app/namefromtext/name_pairs.h"
#include "app/namefromtext/qt_pair_column.h"

namespace mdlPLM {

struct AppContext;
class NameFromTextHost;
namespace Ui {
class frmNameFromFile;
}

class PairLists : public QObject {
    Q_OBJECT

public:
    /// What the lists work with; all of it outlives them.
    struct Parts {
        AppContext& Context;
        NameFromTextHost& Host;
        const Ui::frmNameFromFile& Controls;
        QWidget& Window;
    };
    explicit PairLists(const Parts& parts, QObject* parent = nullptr);

    [[nodiscard]] const NamePairs& Pairs() const { return pairs_; }
    /// The folder of the first old file; `otherwise` while there is none.
    [[nodiscard]] Text FolderOr(const Text& otherwise) const;
    void AddFiles(const std::vector<Text>& paths);
    void AddNames(const std::vector<Text>& names);
    void Clear();

signals:
    void FilesDropped(const std::vector<Text>& paths);

private:
    void SetUpLists();
    void ConnectButtons();
    void ConnectLists();
    void cmdAddFiles_Click();
    void cmdRemoveFile_Click();
    void cmdRemoveNew_Click();
    void cmdClearOld_Click();
    void cmdClearNew_Click();
    void cmdMoveUp_Click();
    void cmdMoveDn_Click();
    void MoveSelected(NamePairs::Direction direction);
    void lstOldFileNames_Click();
    void lstOldFileNames_KeyDown();
    void lstNewFileNames_KeyDown();
    void lstNewFileNames_DblClick();
    void ShowOldCount();
    void ShowNewCount();

    Parts parts_;
    NamePairs pairs_;
    PairColumn oldFiles_{pairs_, PairColumn::Side::OldFiles, nullptr};
    PairColumn newNames_{pairs_, PairColumn::Side::NewNames, nullptr};
};

}  // namespace mdlPLM
