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

/// What is needed of GStreamer itself, without being linked to it.
class GStreamer {
public:
    GStreamer() {
        Take(init_, "gst_init_check");
        Take(find_, "gst_element_factory_find");
        Take(make_, "gst_element_factory_make");
        Take(setState_, "gst_element_set_state");
        Take(inBin_, "gst_bin_get_by_name");
        Take(unref_, "gst_object_unref");
        usable_ = complete_ && init_(nullptr, nullptr, nullptr) != 0;
    }

    [[nodiscard]] bool IsUsable() const { return usable_; }

    [[nodiscard]] bool HasElement(const char* name) const { return Is(find_(name)); }

    /// Whether the automatic sink finds no device. It then holds a sink of this name that throws
    /// the sound away.
    [[nodiscard]] bool HasOnlyFakeSink() const {
        constexpr int Null = 1;
        constexpr int Ready = 2;
        void* const sink = make_("autoaudiosink", nullptr);
        if (sink == nullptr) return false;
        setState_(sink, Ready);
        const bool fake = Is(inBin_(sink, "fake-audio-sink"));
        setState_(sink, Null);
        unref_(sink);
        return fake;
    }

private:
    template <class Function>
    void Take(Function& function, const char* name) {
        function = reinterpret_cast<Function>(library_.resolve(name));
        complete_ = complete_ && function != nullptr;
    }

    bool Is(void* object) const {
        if (object != nullptr) unref_(object);
        return object != nullptr;
    }

    QLibrary library_{QStringLiteral("gstreamer-1.0"), 0};
    bool complete_ = true;
    bool usable_ = false;
    int (*init_)(int*, char***, void**) = nullptr;
    void* (*find_)(const char*) = nullptr;
    void* (*make_)(const char*, const char*) = nullptr;
    int (*setState_)(void*, int) = nullptr;
    void* (*inBin_)(void*, const char*) = nullptr;
    void (*unref_)(void*) = nullptr;
};

/// The missing elements; all of them where GStreamer itself cannot be used.
QStringList MissingElements() {
    const GStreamer gstreamer;
    if (!gstreamer.IsUsable()) return {QStringLiteral("gstreamer")};
    QStringList missing;
    for (const char* name : Elements) {
        if (!gstreamer.HasElement(name)) missing << QLatin1String(name);
    }
    return missing;
}

}  // namespace

bool HasSoundDevice() {
    if (!RunsOn("gstreamer", DefaultBackend())) return true;
    const GStreamer gstreamer;
    return !gstreamer.IsUsable() || !gstreamer.HasOnlyFakeSink();
}

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
