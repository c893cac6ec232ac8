#pragma once

#include <QString>

#include <functional>

/// Takes pictures of an import: the progress window, the question and each message.
/// @param save  takes one of what the screen shows, under a name
void ShowImport(const std::function<void(const QString& name)>& save);
