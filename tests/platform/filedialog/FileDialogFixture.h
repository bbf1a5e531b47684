// A real folder tree for the file dialog tests, and reading what the
// simulated user sees.
#pragma once

#include "support/TempDir.h"

#include <afxwin.h>
#include <commctrl.h>
#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace automation = platform::automation;

inline std::u16string U16(const std::filesystem::path& path) {
    return platform::FromUtf8(path.string()).Str();
}

inline std::u16string Narrow16(const std::string& text) {
    return platform::FromUtf8(text).Str();
}

// root/
//   alpha/  Beta/inner.txt  .hidden/
//   file2.txt  file10.txt  notes.txt (2000 bytes)  README.TXT  image.png
//   .profile  empty.txt (0 bytes)
class FileDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        root = testing_support::TestOutputDir("filedialog");
        std::filesystem::create_directories(root / "alpha");
        std::filesystem::create_directories(root / "Beta");
        std::filesystem::create_directories(root / ".hidden");
        Write(root / "Beta" / "inner.txt", 10);
        Write(root / "file2.txt", 1);
        Write(root / "file10.txt", 1);
        Write(root / "notes.txt", 2000);
        Write(root / "README.TXT", 1);
        Write(root / "image.png", 1);
        Write(root / ".profile", 1);
        Write(root / "empty.txt", 0);
    }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    static void Write(const std::filesystem::path& path, std::size_t bytes) {
        std::ofstream(path) << std::string(bytes, 'x');
    }
    // Reads the active file dialog into view as the next action.
    void Look(automation::FileDialogView& view) {
        automation::Do([&view] { EXPECT_TRUE(automation::ReadFileDialog(&view)); });
    }
    // The text of the active message box, read as the next action.
    void ReadMessageBox(std::u16string& caption, std::u16string& text) {
        automation::Do([&caption, &text] {
            HWND box = GetActiveWindow();
            caption = WindowText(box);
            for (HWND child = GetWindow(box, GW_CHILD); child;
                 child = GetWindow(child, GW_HWNDNEXT))
                if (GetDlgCtrlID(child) == 0xFFFF)
                    text = WindowText(child);
        });
    }
    static std::u16string WindowText(HWND hwnd) {
        std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
        if (!text.empty())
            GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    std::u16string Root() const { return U16(root); }
    std::u16string In(const char* name) const { return U16(root / name); }

    std::filesystem::path root;
};

inline const WCHAR* kTextFilter = u"Text files (*.txt)|*.txt|All files (*.*)|*.*||";
