#include "app/cli/json_object.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "core/platform/path.h"

namespace mdlPLM::cli {
namespace {

using Json = nlohmann::json;

TEST(Base64, TheVectorsOfItsStandard) {
    EXPECT_EQ(Base64(""), "");
    EXPECT_EQ(Base64("f"), "Zg==");
    EXPECT_EQ(Base64("fo"), "Zm8=");
    EXPECT_EQ(Base64("foo"), "Zm9v");
    EXPECT_EQ(Base64("foob"), "Zm9vYg==");
    EXPECT_EQ(Base64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(Base64("foobar"), "Zm9vYmFy");
    EXPECT_EQ(Base64("\xFF\xFE\x00"), "//4=");
}

TEST(JsonObject, KeepsItsKeysInOrderOnOneLine) {
    JsonObject inner;
    inner.Put("b", 2LL).Put("a", 0.5);
    JsonObject object;
    object.Put("z", u"text").Put("y", true).PutNull("x").PutOrNull("w", u"").PutOrNull("v", u"v");
    object.Put("inner", std::move(inner));
    EXPECT_EQ(object.Line(),
              "{\"z\":\"text\",\"y\":true,\"x\":null,\"w\":null,\"v\":\"v\","
              "\"inner\":{\"b\":2,\"a\":0.5}}\n");
}

TEST(JsonObject, WhateverATextHoldsStaysOnTheLine) {
    const Text text = u"\"\\\n\r\t\x01\x7F å € \U0001F3B5";
    const Bytes line = JsonObject().Put("key", text).Line();
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    EXPECT_EQ(PathFromNative(Json::parse(line)["key"].get<Bytes>()), text);
}

TEST(JsonObject, BytesInNoEncodingAreKeptInASecondKey) {
    const Bytes name = "a\xFF\xE4.mp3";
    const Json parsed = Json::parse(JsonObject().Put("path", PathFromNative(name)).Line());
    EXPECT_EQ(parsed["path"], "a\uFFFD\uFFFD.mp3");
    EXPECT_EQ(parsed["path_bytes"], Base64(name));
    EXPECT_FALSE(Json::parse(JsonObject().Put("path", u"å").Line()).contains("path_bytes"));
}

}  // namespace
}  // namespace mdlPLM::cli
