// The lines of a list file, those together that may be the pieces of one name: a file name can hold
// a line break, which a list file cannot.
#pragma once

#include <vector>

#include "app/list/saved_lists.h"

namespace mdlPLM {

/// What a line of a list file names, as it stands; empty when it names nothing.
Text NamedIn(const Text& line, ListFileKind kind);

/// Lines that belong together: one, or the pieces of what may be one name.
struct LineGroup {
    std::vector<Text> Lines;
    bool TooLong = false;  ///< together they are longer than a name can be
};

/// True when the lines are the pieces of one name with line breaks in it.
bool IsOneName(const LineGroup& group, ListFileKind kind);

/// Takes one line after the other and hands out groups of them. A name with a line break can be
/// told from two names only in a file whose lines end in CR LF, as they do where such a list was
/// written here, and in a ".pls" file, where every line has a key.
class LineGroups {
public:
    /// `most` is how many characters the pieces of one name can have together.
    LineGroups(ListFileKind kind, std::size_t most) : kind_(kind), most_(most) {}

    /// The next line, without its end. Gives the group that it does not belong to, if it ends one.
    LineGroup Take(Text line, bool endsInCrLf);
    /// What is left at the end.
    LineGroup TakeRest();

private:
    [[nodiscard]] bool GoesOn(const Text& line) const;

    ListFileKind kind_;
    std::size_t most_;
    LineGroup group_;
    std::size_t length_ = 0;  // of the group's lines
    bool firstLine_ = true;
    bool linesEndInCrLf_ = false;
    bool lastEndsInCrLf_ = false;
};

}  // namespace mdlPLM
