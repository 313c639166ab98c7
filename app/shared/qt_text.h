// QString <-> Text. Both are UTF-16, so nothing is lost; undecodable bytes of file names stay held.
#pragma once

#include <QString>

#include "core/text/text.h"

namespace mdlPLM {

inline QString ToQt(TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

inline Text FromQt(QStringView text) {
    return Text(text.utf16(), static_cast<std::size_t>(text.size()));
}

}  // namespace mdlPLM
