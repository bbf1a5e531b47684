// A fixture that starts the print host with its main frame shown and its
// profile in a directory of the test's own, and what the tests of the host
// do as the user.
#pragma once

#include "DeliveryHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

class PrintHostTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs the host's message loop until the user has nothing left to do.
    void Run() { host.app->Run(); }
    // The delivery documents open now.
    static int OpenDeliveries();

    std::filesystem::path dir;
    PrintHost host;
};

// Retypes the whole text of a field of the active window, as a user
// selecting it with the keyboard.
void TypeOver(UINT id, const std::u16string& text);
// A control of the page the active wizard shows; null without one.
HWND WizardPageItem(UINT id);
// The index of the page the active wizard shows; -1 without one.
int WizardPageIndex();
std::u16string TextOf(HWND hwnd);
