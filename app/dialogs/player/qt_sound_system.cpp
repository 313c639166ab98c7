#include <QAudioDevice>
#include <QLibrary>
#include <QMediaDevices>
#include <QVersionNumber>
#include <array>

#include "app/dialogs/player/qt_media_player.h"
#include "app/shared/qt_text.h"

namespace mdlPLM {
namespace {

// What the player's pipeline is put together from. Qt joins these elements without looking whether
// it got them, and the program ends when one is missing, so they are asked for before.
constexpr std::array<const char*, 12> Elements = {
    "queue",         "input-selector", "fakesink",      "identity",
    "uridecodebin",  "audioconvert",   "audioresample", "volume",
    "autoaudiosink", "videoconvert",   "videoscale",    "typefind"};

bool RunsOn(const char* backend, const char* defaultBackend) {
    return qEnvironmentVariable("QT_MEDIA_BACKEND", QLatin1String(defaultBackend)) ==
           QLatin1String(backend);
}

const char* DefaultBackend() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const bool changed = QVersionNumber::fromString(qVersion()) >= QVersionNumber(6, 5);
    return changed ? "ffmpeg" : "gstreamer";
#else
    return "native";
#endif
}

using InitCheck = int (*)(int*, char***, void**);
using FactoryFind = void* (*)(const char*);
using ObjectUnref = void (*)(void*);

bool HasElement(FactoryFind find, ObjectUnref unref, const char* name) {
    void* factory = find(name);
    if (factory == nullptr) return false;
    unref(factory);
    return true;
}

/// The missing elements, by a comma; all of them where GStreamer itself cannot be used.
QStringList MissingElements() {
    QLibrary library(QStringLiteral("gstreamer-1.0"), 0);
    const auto init = reinterpret_cast<InitCheck>(library.resolve("gst_init_check"));
    const auto find = reinterpret_cast<FactoryFind>(library.resolve("gst_element_factory_find"));
    const auto unref = reinterpret_cast<ObjectUnref>(library.resolve("gst_object_unref"));
    if (init == nullptr || find == nullptr || unref == nullptr)
        return {QStringLiteral("gstreamer")};
    if (init(nullptr, nullptr, nullptr) == 0) return {QStringLiteral("gstreamer")};
    QStringList missing;
    for (const char* name : Elements) {
        if (!HasElement(find, unref, name)) missing << QLatin1String(name);
    }
    return missing;
}

}  // namespace

bool CanPlay(PlayerFault& fault) {
    if (RunsOn("gstreamer", DefaultBackend())) {
        fault.Why = PlayerFault::Kind::MissingElements;
        fault.Detail = FromQt(MissingElements().join(QStringLiteral(", ")));
        return fault.Detail.empty();
    }
    fault.Why = PlayerFault::Kind::NoSoundDevice;
    return !RunsOn("ffmpeg", DefaultBackend()) || !QMediaDevices::defaultAudioOutput().isNull();
}

}  // namespace mdlPLM
