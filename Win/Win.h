// Every public class of the library.
#pragma once

#include "Win/controls/CWarningDlg.h"
#include "Win/export/CExportFile.h"
#include "Win/export/CExportFormat.h"
#include "Win/export/CExportFormatDlg.h"
#include "Win/framework/CDocWithID.h"
#include "Win/framework/CMDIChildWndPlus.h"
#include "Win/framework/CMultiDocTemplatePlus.h"
#include "Win/framework/CSchemaManager.h"
#include "Win/render/ScreenCharRenderer.h"
#include "Win/screen/CursorPos.h"
#include "Win/screen/EmulatorLayout.h"
#include "Win/screen/FontStyle.h"
#include "Win/screen/ScreenBuffer.h"
#include "Win/screen/ScreenChar.h"
#include "Win/utils/CResourceString.h"
#include "Win/utils/WinUtils.h"
