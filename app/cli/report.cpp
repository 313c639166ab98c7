#include "app/cli/report.h"

#include <algorithm>

#include "app/list/list_operations.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

using Clock = std::chrono::steady_clock;

/// What is to be seen by people is written this often.
constexpr std::chrono::milliseconds Pause{100};

bool IsDue(Clock::time_point last) { return Clock::now() - last >= Pause; }

constexpr BytesView WipeLine = "\r\x1b[K";

bool IsControl(char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

Text OnOneLine(TextView text) {
    Text shown(text);
    std::replace_if(shown.begin(), shown.end(), IsControl, u'?');
    return shown;
}

}  // namespace

Text Harmless(TextView text) {
    Text shown(text);
    std::replace_if(
        shown.begin(), shown.end(), [](char16_t c) { return IsControl(c) && c != u'\n'; }, u'?');
    return shown;
}

Report::~Report() { EndProgress(); }

void Report::Line(BytesView line) {
    if (console_.Kinds().Out) EndProgress();
    console_.Out(line);
    console_.Out("\n");
}

void Report::Object(const JsonObject& object) {
    if (console_.Kinds().Out) EndProgress();
    console_.Out(object.Line());
}

void Report::FlushSoon() {
    if (!IsDue(lastFlush_)) return;
    console_.Flush();
    lastFlush_ = Clock::now();
}

Bytes Report::Shown(TextView text) const {
    return console_.Kinds().Out ? ToUtf8(OnOneLine(text)) : ToUtf8(text);
}

void Report::Error(TextView message) {
    EndProgress();
    console_.Errors(Bytes(ProgramName) + ": " + ToUtf8(Harmless(message)) + "\n");
}

void Report::Fail(TextView path, TextView reason) {
    ++failures_;
    Error(OnOneLine(path) + u": " + Text(reason));
}

void Report::Fail(TextView message) {
    ++failures_;
    Error(message);
}

void Report::Tell(TextView message) { Error(message); }

void Report::Misuse(TextView message) {
    misused_ = true;
    Error(message);
}

bool Report::WantsProgress() const { return console_.Kinds().Errors && IsDue(lastProgress_); }

void Report::Progress(TextView text) {
    if (!WantsProgress()) return;
    lastProgress_ = Clock::now();
    progressShown_ = true;
    // The last column stays free: a terminal that wraps there would scroll.
    const Text fitting = Left(OnOneLine(text), console_.Kinds().Columns - 1);
    console_.Errors(Bytes(WipeLine) + ToUtf8(fitting));
}

void Report::EndProgress() {
    if (!progressShown_) return;
    progressShown_ = false;
    console_.Errors(WipeLine);
}

bool Report::ShouldStop() const { return console_.Interrupted() || console_.OutFailed(); }

bool Report::MayBegin(std::size_t done, std::size_t total) {
    const auto counted = [&] {
        return NumberText(static_cast<long long>(done)) + u" of " + FilesText(total);
    };
    if (done == total || !ShouldStop()) {
        // Where the results appear on the terminal they show how far the work is.
        if (!console_.Kinds().Out && WantsProgress()) Progress(counted());
        return done < total;
    }
    if (console_.Interrupted()) Fail(u"stopped: " + counted() + u" done");
    return false;
}

ExitStatus Report::Status() const {
    if (misused_) return UsedWrongly;
    return failures_ > 0 || ShouldStop() ? SomeFailed : AllDone;
}

}  // namespace mdlPLM::cli
