#include "BarFrame.h"

namespace controlbars {

BEGIN_MESSAGE_MAP(CBarFrame, CFrameWnd)
ON_COMMAND(ID_FRAME_COMMAND, OnFrameCommand)
END_MESSAGE_MAP()

} // namespace controlbars
