#include "app/shared/qt_file_drops.h"

#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QTest>

#include "core/platform/path.h"

using namespace mdlPLM;

namespace {

constexpr Qt::DropActions Any = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

struct Dropped {
    bool Accepted = false;
    Qt::DropAction Action = Qt::IgnoreAction;
};

/// Enter, move and drop of `uriList` with Shift held, which a file manager reads as "move".
Dropped DragOnto(QWidget& target, const QByteArray& mimeType, const QByteArray& contents) {
    QMimeData data;
    data.setData(mimeType, contents);
    const QPoint place(5, 5);
    QDragEnterEvent enter(place, Any, &data, Qt::LeftButton, Qt::ShiftModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&target, &enter);
    QDragMoveEvent move(place, Any, &data, Qt::LeftButton, Qt::ShiftModifier);
    move.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&target, &move);
    QDropEvent drop(place, Any, &data, Qt::LeftButton, Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&target, &drop);
    const bool accepted = enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    const bool copies = enter.dropAction() == Qt::CopyAction &&
                        move.dropAction() == Qt::CopyAction && drop.dropAction() == Qt::CopyAction;
    return {accepted, copies ? Qt::CopyAction : Qt::MoveAction};
}

}  // namespace

class FileDropsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void HandsOverPathsAfterTheDrop();
    void IsAlwaysACopy();
    void RefusesDropWithoutFiles_data();
    void RefusesDropWithoutFiles();
    void KeepsNamesThatAreNoText();

private:
    std::unique_ptr<QListView> list_;
    std::vector<std::vector<Text>> taken_;
};

void FileDropsTest::init() {
    taken_.clear();
    list_ = std::make_unique<QListView>();
    new FileDrops(list_->viewport(), [this](std::vector<Text> paths) { taken_.push_back(paths); });
}

void FileDropsTest::HandsOverPathsAfterTheDrop() {
    const Dropped dropped = DragOnto(*list_->viewport(), "text/uri-list",
                                     "file:///m/a%20b.mp3\r\nfile:///m/folder/\r\n");
    QVERIFY(dropped.Accepted);
    QVERIFY(taken_.empty());
    QCoreApplication::processEvents();
    QCOMPARE(taken_.size(), std::size_t(1));
    QCOMPARE(taken_[0], (std::vector<Text>{u"/m/a b.mp3", u"/m/folder"}));
}

void FileDropsTest::IsAlwaysACopy() {
    const Dropped dropped = DragOnto(*list_->viewport(), "text/uri-list", "file:///m/a.mp3\r\n");
    QVERIFY(dropped.Accepted);
    QCOMPARE(dropped.Action, Qt::CopyAction);
}

void FileDropsTest::RefusesDropWithoutFiles_data() {
    QTest::addColumn<QByteArray>("mimeType");
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("text") << QByteArray("text/plain") << QByteArray("/m/a.mp3");
    QTest::newRow("link") << QByteArray("text/uri-list") << QByteArray("http://example.org/\r\n");
}

void FileDropsTest::RefusesDropWithoutFiles() {
    QFETCH(QByteArray, mimeType);
    QFETCH(QByteArray, contents);
    QVERIFY(!DragOnto(*list_->viewport(), mimeType, contents).Accepted);
    QCoreApplication::processEvents();
    QVERIFY(taken_.empty());
}

void FileDropsTest::KeepsNamesThatAreNoText() {
    DragOnto(*list_->viewport(), "text/uri-list", "file:///m/%E5.mp3\r\n");
    QCoreApplication::processEvents();
    QCOMPARE(taken_.size(), std::size_t(1));
    QCOMPARE(NativePath(taken_[0].at(0)), Bytes("/m/\xE5.mp3"));
}

QTEST_MAIN(FileDropsTest)
#include "qt_file_drops_test.moc"
