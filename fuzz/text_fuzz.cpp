// Any bytes as text and back: nothing is lost where nothing may be, and the helpers that take texts
// and paths apart put them together again.
#include "core/names/list_entry.h"
#include "core/platform/dos_attributes.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

Pos Length(TextView text) { return static_cast<Pos>(text.size()); }

void CheckEncodings(BytesView bytes) {
    RequireEqual(ToUtf8(FromUtf8(bytes)), bytes, "bytes of a name are lost");
    RequireEqual(NativePath(PathFromNative(bytes)), bytes, "bytes of a path are lost");
    RequireEqual(ToCodePage(FromCodePage(bytes)), bytes, "bytes of a tag are lost");
    const Text text = FromUtf8(bytes);
    Require(IsValidUtf8(ToUtf8(text)) == IsValidUtf8(bytes), "validity is not kept");
    Require(ToCodePage(text).size() <= text.size(), "a tag text is longer than its characters");
}

void CheckCase(const Text& text) {
    Require(UCase(text).size() == text.size() && LCase(text).size() == text.size(),
            "a change of case changed the length");
    RequireEqual(LCase(LCase(text)), LCase(text), "lower case is lowered again");
    Require(EqualIgnoringCase(text, LCase(text)), "the same text in lower case is another");
}

void CheckParts(const Text& text, Pos at) {
    RequireEqual(Left(text, at - 1) + Mid(text, at), at < 1 ? Mid(text, 1) : text,
                 "two parts are not the whole");
    Require(Right(text, at).size() == Left(text, at).size(), "both ends differ in length");
    const Text what = Mid(text, at, 2);
    const Pos found = InStr(text, what);
    Require(what.empty() || (found > 0 && Mid(text, found, Length(what)) == what),
            "a part is not found");
    const std::size_t rare = FindRare(text, what);
    Require(static_cast<Pos>(rare + 1) == found || (rare == Text::npos && found == 0),
            "a rare part is found elsewhere");
    RequireEqual(Replace(text, what, what), text, "replacing by itself changes a text");
}

void CheckPaths(const Text& path) {
    RequireEqual(FolderOfPath(path) + FileNameOfPath(path), path, "a path is not its parts");
    const Text entry = MakeListEntry(path);
    if (InStr(path, ListEntryMarker) == 0) {
        RequireEqual(GetListEntryPath(entry), path, "another path of a list line");
        // A marker at the very start stands for an empty name: such a line counts as a path.
        if (!FileNameOfPath(path).empty()) {
            RequireEqual(GetListEntryFileName(entry), FileNameOfPath(path), "another name");
            RequireEqual(GetListEntryFolder(entry), FolderOfPath(path), "another folder");
        }
    }
    const Text name = FileNameOfPath(path);
    Require(!IsUsableFileName(name) || JoinPath(u"/x", name) == u"/x" + Text(1, Separator) + name,
            "a joined path");
}

void CheckAttributes(BytesView bytes) {
    const std::uint32_t wanted = bytes.empty() ? 0x21U : static_cast<unsigned char>(bytes.back());
    const Bytes rendered = RenderDosAttributes(bytes, wanted);
    const auto parsed = ParseDosAttributes(rendered);
    Require(parsed.has_value() && *parsed == wanted, "attributes are not read back");
    RequireEqual(RenderDosAttributes(rendered, wanted), rendered, "attributes change again");
}

void CheckNumbers(const Text& text) {
    const long long value = IntegerPart(text);
    Require(IntegerPart(NumberText(value)) == value, "a number is read otherwise");
    if (IsAllDigits(text)) Require(IsNumber(text) && value >= 0, "digits that are no number");
}

}  // namespace

void FuzzText(BytesView bytes) {
    CheckEncodings(bytes);
    CheckAttributes(bytes);
    const Text text = FromUtf8(bytes);
    CheckCase(text);
    for (const Pos at : {Pos{-1}, Pos{1}, Length(text) / 2, Length(text), Length(text) + 2})
        CheckParts(text, at);
    CheckPaths(text);
    CheckNumbers(text);
}

}  // namespace mdlPLM::fuzz
