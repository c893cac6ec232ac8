#include "Journal.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define SOAK_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SOAK_SANITIZED 1
#endif
#endif
#ifdef SOAK_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

const Journal* current = nullptr;

void PrintCurrent()
{
    if (current)
        std::exchange(current, nullptr)->PrintLast();
}

#ifndef SOAK_SANITIZED
void PrintAndDie(int signal)
{
    PrintCurrent();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}
#endif

void PrintWhatEnds()
{
#ifdef SOAK_SANITIZED
    __sanitizer_set_death_callback(PrintCurrent);
#else
    for (const int signal : {SIGSEGV, SIGFPE, SIGILL})
        std::signal(signal, PrintAndDie);
#endif
    std::signal(SIGABRT, [](int) { PrintCurrent(); }); // then it aborts nevertheless
}

} // namespace

Journal::Journal(std::uint64_t seed)
    : m_seed(seed)
{
    current = this;
    PrintWhatEnds();
}

Journal::~Journal()
{
    current = nullptr;
}

void Journal::Begin(int number, const char* kind)
{
    m_last += QString::number(number) + u' ' + QString::fromLatin1(kind);
    if (m_last.size() > Remembered)
        m_last.removeFirst();
}

void Journal::End(const char* kind)
{
    ++m_kinds[QString::fromLatin1(kind)];
}

void Journal::Note(const QString& text)
{
    constexpr qsizetype Longest = 160;
    QString line = text.left(Longest);
    line.replace(u"\r\n"_qs, u" / "_qs).replace(u'\n', u" / "_qs);
    if (!m_last.isEmpty())
        m_last.last() += u"; "_qs + line;
}

void Journal::Fail(const QString& finding) const
{
    PrintLast();
    std::fprintf(stderr, "finding: %s\n", qPrintable(finding));
    std::fflush(nullptr);
    std::_Exit(3);
}

void Journal::PrintLast() const
{
    std::fprintf(stderr, "seed %llu, the last %d actions:\n",
                 static_cast<unsigned long long>(m_seed), static_cast<int>(m_last.size()));
    for (const QString& line : m_last)
        std::fprintf(stderr, "  %s\n", qPrintable(line));
}

void Journal::PrintCounts() const
{
    for (auto kind = m_kinds.begin(); kind != m_kinds.end(); ++kind)
        std::printf("action %-24s %d\n", qPrintable(kind.key()), kind.value());
    for (auto count = m_counts.begin(); count != m_counts.end(); ++count)
        std::printf("count %-25s %d\n", qPrintable(count.key()), count.value());
}
