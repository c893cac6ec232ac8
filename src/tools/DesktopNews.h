#pragma once

/// Tells a desktop that is running with which program files are opened now.
void TellDesktopOfNewAssociations();
