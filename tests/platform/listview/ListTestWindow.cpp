#include "ListTestWindow.h"

namespace listview_test {

BEGIN_MESSAGE_MAP(Parent, CWnd)
ON_NOTIFY(LVN_COLUMNCLICK, kListId, OnColumnClick)
END_MESSAGE_MAP()

} // namespace listview_test
