#include "Win/utils/CResourceString.h"

#include "platform/ResourceModule.h"

#include <gtest/gtest.h>

TEST(CResourceString, LoadsFromTheHostOrStaysEmpty) {
    platform::ResourceModule& strings = platform::Resources(AfxGetResourceHandle());
    strings.SetString(692, u"<Tab>");
    EXPECT_EQ(CResourceString(692), CString(u"<Tab>"));
    EXPECT_TRUE(CResourceString(4711).IsEmpty());

    // Later changes to the table are seen by the next load.
    strings.SetString(692, u"Tabulator");
    EXPECT_EQ(CResourceString(692), CString(u"Tabulator"));
    strings.RemoveString(692);
    EXPECT_TRUE(CResourceString(692).IsEmpty());

    // Switching the application's resource module switches the strings.
    const HINSTANCE app = AfxGetResourceHandle();
    static char otherModule;
    const auto other = reinterpret_cast<HINSTANCE>(&otherModule);
    platform::Resources(other).SetString(692, u"other");
    AfxSetResourceHandle(other);
    EXPECT_EQ(CResourceString(692), CString(u"other"));
    AfxSetResourceHandle(app);
    EXPECT_TRUE(CResourceString(692).IsEmpty());
    platform::ReleaseResources(other);
}
