// One JSON object, built key by key and written as one line (RFC 8259, in UTF-8).
#pragma once

#include <memory>

#include "core/text/text.h"

namespace mdlPLM::cli {

/// Texts lose nothing: one that holds bytes in no encoding (a file name may) is shown with U+FFFD
/// for each of them, and a second key, the first one with "_bytes" behind it, holds all its bytes
/// in base64 (RFC 4648, section 4).
class JsonObject {
public:
    JsonObject();
    JsonObject(JsonObject&& other) noexcept;
    JsonObject& operator=(JsonObject&& other) noexcept;
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;
    ~JsonObject();

    JsonObject& Put(const char* key, TextView text);
    JsonObject& Put(const char* key, BytesView ascii);
    JsonObject& Put(const char* key, const char* ascii) { return Put(key, BytesView(ascii)); }
    JsonObject& Put(const char* key, const Text& text) { return Put(key, TextView(text)); }
    JsonObject& Put(const char* key, const char16_t* text) { return Put(key, TextView(text)); }
    JsonObject& Put(const char* key, JsonObject value);
    JsonObject& Put(const char* key, bool value);
    JsonObject& Put(const char* key, long long value);
    JsonObject& Put(const char* key, double value);
    JsonObject& PutNull(const char* key);
    /// The text, or null when it is empty.
    JsonObject& PutOrNull(const char* key, TextView text);

    /// The object as one line, with its end.
    [[nodiscard]] Bytes Line() const;

private:
    struct Value;
    std::unique_ptr<Value> value_;
};

/// Bytes in base64 (RFC 4648, section 4), with padding.
Bytes Base64(BytesView bytes);

}  // namespace mdlPLM::cli
