#include "app/shared/uri_list.h"

#include <QTest>

#include "app/shared/qt_text.h"
#include "core/platform/path.h"

using namespace mdlPLM;

class UriListTest : public QObject {
    Q_OBJECT

private slots:
    void DecodesBytes_data();
    void DecodesBytes();
    void FindsPathOfUri_data();
    void FindsPathOfUri();
    void KeepsBytesThatAreNoText();
    void ReadsListInOrder();
    void TakesListWithoutLastLineEnd();
};

void UriListTest::DecodesBytes_data() {
    QTest::addColumn<QByteArray>("encoded");
    QTest::addColumn<QByteArray>("decoded");
    QTest::newRow("nothing") << QByteArray("") << QByteArray("");
    QTest::newRow("blank") << QByteArray("a%20b") << QByteArray("a b");
    QTest::newRow("either case") << QByteArray("%c3%A4") << QByteArray("\xC3\xA4");
    QTest::newRow("percent itself") << QByteArray("100%25") << QByteArray("100%");
    QTest::newRow("once only") << QByteArray("%2541") << QByteArray("%41");
    QTest::newRow("no digits") << QByteArray("50%zz") << QByteArray("50%zz");
    QTest::newRow("cut off") << QByteArray("50%4") << QByteArray("50%4");
    QTest::newRow("plus stays") << QByteArray("a+b") << QByteArray("a+b");
}

void UriListTest::DecodesBytes() {
    QFETCH(QByteArray, encoded);
    QFETCH(QByteArray, decoded);
    QCOMPARE(QByteArray::fromStdString(DecodePercent(encoded.toStdString())), decoded);
}

void UriListTest::FindsPathOfUri_data() {
    QTest::addColumn<QByteArray>("uri");
    QTest::addColumn<QString>("path");
    const auto row = [](const char* name, const char* uri, const char16_t* path) {
        QTest::newRow(name) << QByteArray(uri) << QString::fromUtf16(path);
    };
    row("empty host", "file:///music/a.mp3", u"/music/a.mp3");
    row("localhost", "file://localhost/music/a.mp3", u"/music/a.mp3");
    row("scheme and host in capitals", "FILE://LOCALHOST/a.mp3", u"/a.mp3");
    row("no host at all", "file:/music/a.mp3", u"/music/a.mp3");
    row("other host", "file://server/music/a.mp3", u"");
    row("host that begins like localhost", "file://localhost.example/a.mp3", u"");
    row("other scheme", "http://localhost/a.mp3", u"");
    row("relative", "file:a.mp3", u"");
    row("bare path", "/music/a.mp3", u"");
    row("blanks and letters", "file:///m/%C3%84 b%20c.mp3", u"/m/\u00C4 b c.mp3");
    row("number sign and question mark", "file:///m/a%23b?c#d.mp3", u"/m/a#b?c#d.mp3");
    row("folder", "file:///music/", u"/music");
    row("root", "file:///", u"/");
    row("NUL", "file:///a%00b", u"");
}

void UriListTest::FindsPathOfUri() {
    QFETCH(QByteArray, uri);
    QFETCH(QString, path);
    QCOMPARE(ToQt(PathFromFileUri(uri.toStdString())), path);
}

void UriListTest::KeepsBytesThatAreNoText() {
    const Text path = PathFromFileUri("file:///m/bl%E5tt%FF.mp3");
    QCOMPARE(NativePath(path), Bytes("/m/bl\xE5tt\xFF.mp3"));
}

void UriListTest::ReadsListInOrder() {
    const std::vector<Text> paths = PathsFromUriList(
        "# dragged by hand\r\nfile:///b.mp3\r\n\r\nhttp://example.org/x.mp3\r\nfile:///a.mp3\n");
    QCOMPARE(paths, (std::vector<Text>{u"/b.mp3", u"/a.mp3"}));
}

void UriListTest::TakesListWithoutLastLineEnd() {
    QCOMPARE(PathsFromUriList("file:///a.mp3"), std::vector<Text>{u"/a.mp3"});
    QCOMPARE(PathsFromUriList(BytesView("file:///a.mp3\0", 14)), std::vector<Text>{u"/a.mp3"});
    QVERIFY(PathsFromUriList("").empty());
}

QTEST_GUILESS_MAIN(UriListTest)
#include "uri_list_test.moc"
