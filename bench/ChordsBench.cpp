// The chord engine: a loop that Google Benchmark measures, in random order and several repetitions.

#include "Benches.h"
#include "PlainEngine.h"
#include "UsualNotes.h"
#include "chords/Cifra.h"
#include "harness/Rounds.h"
#include "harness/Sheet.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <map>
#include <string>

namespace {

constexpr std::int16_t Shift = 1;

/// Keeps what is measured instead of printing it: there is one table for everything.
class Keeper : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration)
                m_times[run.run_name.function_name].push_back(
                    ReadProcessorTime ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime());
        }
    }

    Nanoseconds Time(const char* name) const { return Median(m_times.at(name)); }

private:
    std::map<std::string, std::vector<Nanoseconds>> m_times;
};

void Register(const QString& sheet, const QString& rendered)
{
    benchmark::RegisterBenchmark("fast", [sheet](benchmark::State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(Funcoes::Monta_Cifra(sheet, Shift, 0, true));
    });
    benchmark::RegisterBenchmark("plain", [sheet](benchmark::State& state) {
        PlainEngine engine{Funcoes::Notas, Funcoes::Notas_Mais, QString()};
        for (auto _ : state)
            benchmark::DoNotOptimize(engine.Monta_Cifra(sheet, Shift, 0, true));
    });
    benchmark::RegisterBenchmark("memcpy", [rendered](benchmark::State& state) {
        const auto bytes = static_cast<std::size_t>(rendered.size()) * sizeof(QChar);
        const std::vector<char> from(reinterpret_cast<const char*>(rendered.constData()),
                                     reinterpret_cast<const char*>(rendered.constData()) + bytes);
        std::vector<char> to(bytes);
        for (auto _ : state) {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::DoNotOptimize(to.data());
            benchmark::ClobberMemory();
        }
    });
}

} // namespace

void BenchChords(const Scale& scale, ResultTable& table)
{
    LoadUsualNotes();
    const QString sheet = Sheet(scale.sheetLines);
    const QString rendered = Funcoes::Monta_Cifra(sheet, Shift, 0, true);
    PlainEngine plain{Funcoes::Notas, Funcoes::Notas_Mais, QString()};
    if (plain.Monta_Cifra(sheet, Shift, 0, true) != rendered)
        qFatal("the two engines disagree");

    Register(sheet, rendered);
    std::vector<std::string> arguments{
        "bench", "--benchmark_enable_random_interleaving=true",
        scale.isShort ? "--benchmark_repetitions=1" : "--benchmark_repetitions=11",
        scale.isShort ? "--benchmark_min_time=0.001" : "--benchmark_min_time=0.1"};
    std::vector<char*> argv;
    argv.reserve(arguments.size());
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    int argc = static_cast<int>(argv.size());
    benchmark::Initialize(&argc, argv.data());
    Keeper times;
    benchmark::RunSpecifiedBenchmarks(&times);
    benchmark::ClearRegisteredBenchmarks();

    const QString work = u"Monta_Cifra, %1 lines"_qs.arg(scale.sheetLines);
    table.Add(work, times.Time("fast"), u"plain engine"_qs, times.Time("plain"),
              {Aim::AtLeast, 60});
    table.Add(work, times.Time("fast"), u"memcpy of the output"_qs, times.Time("memcpy"));
    const double wanted = 150000;
    const double songs = 1e9 / times.Time("fast");
    table.AddText(u"Monta_Cifra, songs a second and core"_qs, QString::number(songs, 'f', 0),
                  u"150000"_qs, songs / wanted, {Aim::AtLeast, 1});
}
