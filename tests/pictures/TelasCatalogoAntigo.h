#pragma once

#include <QString>

#include <functional>

/// Takes pictures of the offer to convert a catalogue in the older format, of the report
/// of what stays behind, and of the progress.
/// @param save  takes one of what the screen shows, under a name
void ShowOldCatalogue(const std::function<void(const QString& name)>& save);
