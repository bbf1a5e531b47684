// A dialog's initialisation data as the resource editor writes it: entries
// of words, odd lengths ended by a string byte, the script's code page, and
// the errors of a block that does not add up.
#include "ScriptFiles.h"

#include <gtest/gtest.h>

using namespace res_test;

TEST(DialogInit, EntriesCarryControlMessageBytesAndText) {
    const auto s = Read("#pragma code_page(1252)\n"
                        "#define IDC_LIST 1000\n"
                        "IDD_X DLGINIT\nBEGIN\n"
                        "    IDC_LIST, 0x403, 6, 0\n0x543c, 0x6261, 0x003e, \n"
                        "    IDC_LIST, 0x403, 3, 0\n0xe96f, \"\\000\" \n"
                        "    1001, 0x401, 0x2L\n0x0041, \n"
                        "    0\nEND\n");
    ASSERT_EQ(s.dialogInits.size(), 1u);
    EXPECT_EQ(s.dialogInits[0].first.name, u"IDD_X");
    const auto& entries = s.dialogInits[0].second;
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].controlId, 1000u);
    EXPECT_EQ(entries[0].message, 0x403u);
    EXPECT_EQ(entries[0].data, (std::vector<std::uint8_t>{'<', 'T', 'a', 'b', '>', 0}));
    EXPECT_EQ(entries[0].text, u"<Tab>");
    // An odd length: the last byte comes from a string; 0xE9 is é in 1252.
    EXPECT_EQ(entries[1].data, (std::vector<std::uint8_t>{'o', 0xE9, 0}));
    EXPECT_EQ(entries[1].text, u"o\u00e9");
    // A length written as one 32-bit value.
    EXPECT_EQ(entries[2].controlId, 1001u);
    EXPECT_EQ(entries[2].message, 0x401u);
    EXPECT_EQ(entries[2].text, u"A");
}

TEST(DialogInit, ABlockThatDoesNotAddUpNamesItsLine) {
    EXPECT_EQ(ErrorOf("1 DLGINIT\nBEGIN\n 1000, 0x403, 9, 0\n0x4141,\n 0\nEND\n"),
              "app.rc(3): the DLGINIT entry for control 1000 claims 9 bytes but the block has "
              "fewer");
    EXPECT_EQ(ErrorOf("1 DLGINIT\nBEGIN\n 1000, 0x403\nEND\n"),
              "app.rc(3): a DLGINIT entry needs a control id, a message and a length in two words");
    EXPECT_EQ(ErrorOf("1 DLGINIT\nBEGIN\n 1000, 0x12345, 2, 0\nEND\n"),
              "app.rc(3): DLGINIT data are 16-bit words; 74565 needs an L suffix");
    EXPECT_EQ(ErrorOf("1 DLGINIT\nBEGIN\n 1000, 0x403, 2, 0, 0x41\n"),
              "app.rc(4): END missing for the block opened at line 2 of app.rc");
}

TEST(DialogInit, AnEmptyBlockAndOneDeclaredTwice) {
    const auto s = Read("1 DLGINIT\nBEGIN\n 0\nEND\n2 DLGINIT\nBEGIN\nEND\n");
    ASSERT_EQ(s.dialogInits.size(), 2u);
    EXPECT_TRUE(s.dialogInits[0].second.empty());
    EXPECT_EQ(ErrorOf("1 DLGINIT\nBEGIN\n 0\nEND\n1 DLGINIT\nBEGIN\n 0\nEND\n"),
              "app.rc(5): this resource is declared twice");
}
