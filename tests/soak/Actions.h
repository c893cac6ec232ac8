#pragma once

#include <QList>

class Musician;

/// Something that a user does.
struct Action
{
    const char* kind;
    int weight;
    /// @return false when it cannot be done now; nothing was done then
    bool (*perform)(Musician&);
};

void AddSearchActions(QList<Action>& actions);
void AddEntryActions(QList<Action>& actions);
void AddThemeActions(QList<Action>& actions);
void AddSetlistActions(QList<Action>& actions);
void AddViewerActions(QList<Action>& actions);
void AddEditingActions(QList<Action>& actions);
void AddExchangeActions(QList<Action>& actions);
void AddWindowActions(QList<Action>& actions);
