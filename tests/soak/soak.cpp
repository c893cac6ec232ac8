// Somebody who uses the program for hours: random but valid events, each followed by a look at what
// must hold.
//   soak [ACTIONS [SEED]]
// ACTIONS and SEED say what is done; the clock has no part in it.

#include "Musician.h"

#include "app/Main.h"

#include <QApplication>
#include <QFile>
#include <QStandardPaths>

#include <cstdio>

#if defined(__SANITIZE_ADDRESS__)
#define SOAK_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SOAK_SANITIZED 1
#endif
#endif
#ifdef SOAK_SANITIZED
#include <sanitizer/allocator_interface.h>
#endif

namespace {

constexpr int BetweenRests = 100;   // actions
constexpr int WarmUp = 3;           // rests
constexpr qint64 Spread = 48 << 20; // bytes that the heap may differ by between two rests

struct Memory
{
    qint64 resident = 0; ///< VmRSS in bytes; 0 where it cannot be had
    qint64 heap = 0;     ///< in use, in bytes; 0 where it cannot be had
};

Memory MemoryNow()
{
    Memory memory;
    QFile status(u"/proc/self/status"_qs);
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArrayList lines = status.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("VmRSS:"))
                memory.resident = line.simplified().split(' ').value(1).toLongLong() << 10;
        }
    }
#ifdef SOAK_SANITIZED
    memory.heap = static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#endif
    return memory;
}

void Print(const char* when, const Memory& memory)
{
    std::printf("memory %-8s VmRSS %lld kB, heap %lld kB\n", when,
                static_cast<long long>(memory.resident >> 10),
                static_cast<long long>(memory.heap >> 10));
}

void Use(Musician& musician, int actions)
{
    Memory warm;
    Memory last;
    for (int number = 1; number <= actions; ++number) {
        musician.Act(number);
        if (number % BetweenRests != 0 && number != actions)
            continue;
        musician.Rest();
        last = MemoryNow();
        if (number <= WarmUp * BetweenRests)
            warm = last;
        Print("at rest", last);
        std::fflush(stdout);
    }
    Print("warm", warm);
    Print("end", last);
    musician.Demand(last.heap - warm.heap < Spread, u"the heap grows"_qs);
}

} // namespace

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QApplication program(argc, argv);
    Funcoes::Prepara(program);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const int actions = arguments.value(1, u"400"_qs).toInt();
    const std::uint64_t seed = arguments.value(2, u"1"_qs).toULongLong();

    Musician musician(seed);
    Use(musician, actions);
    musician.journal.PrintCounts();
    const auto& rows = musician.watch->Rows();
    std::printf("rows songs %d, themes %d, setlists %d\n", static_cast<int>(rows.songs.size()),
                static_cast<int>(rows.themes.size()), static_cast<int>(rows.setlists.size()));
    std::printf("done seed %llu, %d actions, %lld simulated seconds\n",
                static_cast<unsigned long long>(seed), actions,
                static_cast<long long>(musician.secondsUsed));
    return 0;
}
