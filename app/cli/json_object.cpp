#include "app/cli/json_object.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr char Base64Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

struct JsonObject::Value {
    Json Object = Json::object();
};

JsonObject::JsonObject() : value_(std::make_unique<Value>()) {}
JsonObject::JsonObject(JsonObject&& other) noexcept = default;
JsonObject& JsonObject::operator=(JsonObject&& other) noexcept = default;
JsonObject::~JsonObject() = default;

JsonObject& JsonObject::Put(const char* key, TextView text) {
    const Bytes bytes = ToUtf8(text);
    value_->Object[key] = bytes;
    if (!IsValidUtf8(bytes)) value_->Object[Bytes(key) + "_bytes"] = Base64(bytes);
    return *this;
}

JsonObject& JsonObject::Put(const char* key, BytesView ascii) {
    value_->Object[key] = Bytes(ascii);
    return *this;
}

JsonObject& JsonObject::Put(const char* key, JsonObject value) {
    value_->Object[key] = std::move(value.value_->Object);
    return *this;
}

JsonObject& JsonObject::Put(const char* key, bool value) {
    value_->Object[key] = value;
    return *this;
}

JsonObject& JsonObject::Put(const char* key, long long value) {
    value_->Object[key] = value;
    return *this;
}

JsonObject& JsonObject::Put(const char* key, double value) {
    value_->Object[key] = value;
    return *this;
}

JsonObject& JsonObject::PutNull(const char* key) {
    value_->Object[key] = nullptr;
    return *this;
}

JsonObject& JsonObject::PutOrNull(const char* key, TextView text) {
    return text.empty() ? PutNull(key) : Put(key, text);
}

Bytes JsonObject::Line() const {
    return value_->Object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Bytes Base64(BytesView bytes) {
    Bytes result;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const BytesView group = bytes.substr(i, 3);
        unsigned bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < group.size() ? static_cast<unsigned char>(group[k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            result += k <= group.size() ? Base64Digits[bits >> (18 - 6 * k) & 63U] : '=';
    }
    return result;
}

}  // namespace mdlPLM::cli
