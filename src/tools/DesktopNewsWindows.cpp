#include "tools/DesktopNews.h"

#include <windows.h>

#include <shlobj.h>

void TellDesktopOfNewAssociations()
{
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}
