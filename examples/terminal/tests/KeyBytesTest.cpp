// The bytes the terminal window sends for keys and typed characters.
#include "KeyBytes.h"

#include <gtest/gtest.h>

namespace {

TEST(KeyBytes, CharactersAreUtf8WithBackspaceAsDelete) {
    WCHAR high = 0;
    EXPECT_EQ(key_bytes::ForChar(u'a', &high), "a");
    EXPECT_EQ(key_bytes::ForChar(u'\r', &high), "\r");
    EXPECT_EQ(key_bytes::ForChar(u'\b', &high), "\x7f");
    EXPECT_EQ(key_bytes::ForChar(0x03, &high), "\x03");
    EXPECT_EQ(key_bytes::ForChar(0x00E9, &high), "\xc3\xa9");
    EXPECT_EQ(key_bytes::ForChar(0x20AC, &high), "\xe2\x82\xac");
    // A character beyond the first plane comes as two halves.
    EXPECT_EQ(key_bytes::ForChar(0xD83D, &high), "");
    EXPECT_EQ(key_bytes::ForChar(0xDE00, &high), "\xf0\x9f\x98\x80");
    // Halves without their partner are dropped; what follows is not harmed.
    EXPECT_EQ(key_bytes::ForChar(0xDE00, &high), "");
    EXPECT_EQ(key_bytes::ForChar(0xD83D, &high), "");
    EXPECT_EQ(key_bytes::ForChar(u'x', &high), "x");
    EXPECT_EQ(high, 0);
}

TEST(KeyBytes, CursorKeysFollowTheCursorKeyMode) {
    EXPECT_EQ(key_bytes::ForKey(VK_UP, false), "\x1b[A");
    EXPECT_EQ(key_bytes::ForKey(VK_DOWN, false), "\x1b[B");
    EXPECT_EQ(key_bytes::ForKey(VK_RIGHT, false), "\x1b[C");
    EXPECT_EQ(key_bytes::ForKey(VK_LEFT, false), "\x1b[D");
    EXPECT_EQ(key_bytes::ForKey(VK_UP, true), "\x1bOA");
    EXPECT_EQ(key_bytes::ForKey(VK_LEFT, true), "\x1bOD");
}

TEST(KeyBytes, EditingAndFunctionKeys) {
    EXPECT_EQ(key_bytes::ForKey(VK_HOME, false), "\x1b[1~");
    EXPECT_EQ(key_bytes::ForKey(VK_INSERT, true), "\x1b[2~");
    EXPECT_EQ(key_bytes::ForKey(VK_DELETE, false), "\x1b[3~");
    EXPECT_EQ(key_bytes::ForKey(VK_END, false), "\x1b[4~");
    EXPECT_EQ(key_bytes::ForKey(VK_PRIOR, false), "\x1b[5~");
    EXPECT_EQ(key_bytes::ForKey(VK_NEXT, false), "\x1b[6~");
    EXPECT_EQ(key_bytes::ForKey(VK_F1, false), "\x1bOP");
    EXPECT_EQ(key_bytes::ForKey(VK_F4, true), "\x1bOS");
    // Keys that type characters come through WM_CHAR instead.
    EXPECT_EQ(key_bytes::ForKey('A', false), "");
    EXPECT_EQ(key_bytes::ForKey(VK_RETURN, false), "");
    EXPECT_EQ(key_bytes::ForKey(VK_F5, false), "");
}

} // namespace
