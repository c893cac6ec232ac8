#pragma once

/// As long as one of these lives, the desktop is asked not to darken or lock the screen by itself:
/// on stage nobody touches the keyboard for minutes. Where the desktop cannot be asked, nothing
/// happens and nobody is told.
class TelaAcesa
{
public:
    TelaAcesa();
    ~TelaAcesa(); // NOLINT(performance-trivially-destructible): only where nobody can be asked
    TelaAcesa(const TelaAcesa&) = delete;
    TelaAcesa& operator=(const TelaAcesa&) = delete;
};
