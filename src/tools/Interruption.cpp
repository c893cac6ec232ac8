#include "tools/Interruption.h"

#include <array>
#include <atomic>
#include <csignal>

namespace {

std::atomic<bool> noted = false;
static_assert(std::atomic<bool>::is_always_lock_free); // else a signal could not set it

constexpr std::array<int, 2> Wishes = {SIGINT, SIGTERM};

} // namespace

extern "C" {
static void NoteWish(int wish)
{
    noted = true;
    std::signal(wish, SIG_DFL);
}
}

namespace {

void Handle(void (*handler)(int))
{
    for (const int wish : Wishes) {
        // A program that was started to live on through such a wish does.
        if (std::signal(wish, handler) == SIG_IGN)
            std::signal(wish, SIG_IGN);
    }
}

} // namespace

void Interruption::Watch()
{
    noted = false;
    Handle(NoteWish);
}

void Interruption::LetThrough()
{
    Handle(SIG_DFL);
}

void Interruption::Check()
{
    if (noted)
        throw Interrupted();
}
