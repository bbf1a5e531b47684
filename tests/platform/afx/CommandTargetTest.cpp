// Command targets without a window: commands looked up in the object's map and
// its base's, ranges, asking whether a handler exists, and the command
// user-interface update that disables a command nobody handles.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kOpen = 0x8001;
constexpr UINT kSave = 0x8002;
constexpr UINT kBold = 0x8003;
constexpr UINT kPlain = 0x8004;
constexpr UINT kRecentFirst = 0x8010;
constexpr UINT kRecentLast = 0x8013;
constexpr UINT kNobody = 0x8020;

class Document : public CCmdTarget {
public:
    std::vector<std::string> calls;
    bool saveAllowed = false;

    void OnOpen() { calls.push_back("open"); }
    void OnSave() { calls.push_back("save"); }
    void OnUpdateSave(CCmdUI* ui) { ui->Enable(saveAllowed); }
    void OnUpdateBold(CCmdUI* ui) {
        ui->SetCheck(1);
        ui->SetText(u"Bold");
    }
    void OnUpdatePlain(CCmdUI*) { calls.push_back("asked plain"); }
    void OnRecent(UINT id) { calls.push_back("recent " + std::to_string(id - kRecentFirst)); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Document, CCmdTarget)
ON_COMMAND(kOpen, OnOpen)
ON_COMMAND(kSave, OnSave)
ON_UPDATE_COMMAND_UI(kSave, OnUpdateSave)
ON_UPDATE_COMMAND_UI(kBold, OnUpdateBold)
ON_UPDATE_COMMAND_UI(kPlain, OnUpdatePlain)
ON_COMMAND_RANGE(kRecentFirst, kRecentLast, OnRecent)
END_MESSAGE_MAP()

// A derived document whose own entry comes before its base's.
class TextDocument : public Document {
public:
    void OnOpenText() { calls.push_back("open text"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TextDocument, Document)
ON_COMMAND(kOpen, OnOpenText)
END_MESSAGE_MAP()

CCmdUI StateFor(UINT id) {
    CCmdUI ui;
    ui.m_nID = id;
    return ui;
}

TEST(CommandTarget, CommandsFindTheirHandlerInTheMapOrItsBase) {
    TextDocument doc;
    EXPECT_TRUE(doc.OnCmdMsg(kOpen, CN_COMMAND, nullptr, nullptr));
    EXPECT_TRUE(doc.OnCmdMsg(kSave, CN_COMMAND, nullptr, nullptr));
    EXPECT_TRUE(doc.OnCmdMsg(kRecentFirst + 2, CN_COMMAND, nullptr, nullptr));
    EXPECT_TRUE(doc.OnCmdMsg(kRecentLast, CN_COMMAND, nullptr, nullptr));
    EXPECT_FALSE(doc.OnCmdMsg(kRecentLast + 1, CN_COMMAND, nullptr, nullptr));
    EXPECT_FALSE(doc.OnCmdMsg(kNobody, CN_COMMAND, nullptr, nullptr));
    // A control notification code is not a command.
    EXPECT_FALSE(doc.OnCmdMsg(kOpen, BN_DOUBLECLICKED, nullptr, nullptr));
    EXPECT_EQ(doc.calls, (std::vector<std::string>{"open text", "save", "recent 2", "recent 3"}));

    // With handler information asked for, nothing runs.
    char info = 0;
    doc.calls.clear();
    EXPECT_TRUE(doc.OnCmdMsg(kSave, CN_COMMAND, nullptr, &info));
    EXPECT_FALSE(doc.OnCmdMsg(kNobody, CN_COMMAND, nullptr, &info));
    EXPECT_TRUE(doc.calls.empty());

    // A bare command target handles nothing.
    CCmdTarget bare;
    EXPECT_FALSE(bare.OnCmdMsg(kOpen, CN_COMMAND, nullptr, nullptr));
}

TEST(CommandTarget, TheUpdateHandlerSetsTheStateAndACommandWithoutOneIsEnabledIfHandled) {
    Document doc;
    CCmdUI save = StateFor(kSave);
    EXPECT_TRUE(save.DoUpdate(&doc, TRUE));
    EXPECT_FALSE(save.m_bEnabled);
    doc.saveAllowed = true;
    EXPECT_TRUE(save.DoUpdate(&doc, TRUE));
    EXPECT_TRUE(save.m_bEnabled);
    EXPECT_TRUE(save.m_bEnableChanged);

    CCmdUI bold = StateFor(kBold);
    EXPECT_TRUE(bold.DoUpdate(&doc, TRUE));
    EXPECT_EQ(bold.m_nCheck, 1);
    // The handler left the enabled state alone.
    EXPECT_TRUE(bold.m_bEnabled);
    EXPECT_FALSE(bold.m_bEnableChanged);

    // An update handler that sets nothing is still the answer: the command
    // is not disabled for want of a command handler.
    CCmdUI plain = StateFor(kPlain);
    EXPECT_TRUE(plain.DoUpdate(&doc, TRUE));
    EXPECT_TRUE(plain.m_bEnabled);
    EXPECT_EQ(doc.calls, std::vector<std::string>{"asked plain"});

    // No update handler: enabled when a command handler exists, which is
    // only asked about, not run.
    doc.calls.clear();
    CCmdUI open = StateFor(kOpen);
    EXPECT_FALSE(open.DoUpdate(&doc, TRUE));
    EXPECT_TRUE(open.m_bEnabled);
    EXPECT_TRUE(open.m_bEnableChanged);
    EXPECT_TRUE(doc.calls.empty());
    CCmdUI nobody = StateFor(kNobody);
    EXPECT_FALSE(nobody.DoUpdate(&doc, TRUE));
    EXPECT_FALSE(nobody.m_bEnabled);
    // Unless the caller keeps such commands as they are.
    CCmdUI kept = StateFor(kNobody);
    EXPECT_FALSE(kept.DoUpdate(&doc, FALSE));
    EXPECT_TRUE(kept.m_bEnabled);
    EXPECT_FALSE(kept.m_bEnableChanged);

    EXPECT_FALSE(kept.DoUpdate(nullptr, TRUE));
    EXPECT_TRUE(kept.m_bEnabled);
}

} // namespace
