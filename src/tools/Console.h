#pragma once

/// The window of text that a command writes its messages to. Its texts are UTF-8; where the system
/// expects another code page, they are announced as such while this lives. Bytes that pass the
/// standard streams stay what they are.
class Console
{
public:
    Console();
    // Trivial only where nothing has to be given back.
    // NOLINTNEXTLINE(performance-trivially-destructible)
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// @return true when the window was opened for this command alone: it closes with it, and what
    /// was said there is not read
    static bool ClosesWithTheCommand();

private:
    [[maybe_unused]] unsigned int m_before = 0; ///< the code page that was there
};
