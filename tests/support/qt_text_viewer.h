// Stands in for the system's program for text files.
#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

namespace mdlPLM::test {

/// To be set as the handler of an address's scheme, with its slot "open".
class TextViewer : public QObject {
    Q_OBJECT

public:
    QList<QUrl> Opened;

public slots:
    void open(const QUrl& url) { Opened << url; }
};

}  // namespace mdlPLM::test
