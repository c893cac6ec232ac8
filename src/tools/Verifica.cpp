// melodario-verifica: tells what is wrong with a catalogue, and repairs it into a new one.

#include "runtime/RuntimeError.h"
#include "tools/CatalogueRepair.h"
#include "tools/CheckedCatalogue.h"
#include "tools/Console.h"
#include "tools/Messages.h"
#include "tools/RepairedFile.h"
#include "tools/StandardInput.h"
#include "tools/VerificationOrder.h"

#include <QCoreApplication>
#include <QTemporaryFile>
#include <QTextStream>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int AllWell = 0;
constexpr int SomethingFound = 1;
constexpr int NotDone = 2;

/// More cases than these are told with --tudo alone.
constexpr qsizetype Shown = 20;

const QString Help =
    u"Uso: melodario-verifica [OPÇÕES] CATALOGO\n"
    "\n"
    "Verifica um catálogo do Melodario (.mdb) e diz o que encontrou: dano no arquivo, ligações\n"
    "com músicas, temas ou listas que não existem, músicas sem tema, sem título ou sem letra, e\n"
    "músicas parecidas. O catálogo nunca é alterado. \"-\" lê o catálogo da entrada padrão.\n"
    "\n"
    "  --reparar NOVO  escreve em NOVO um catálogo reparado, com tudo o que pôde ser lido\n"
    "                  (\"-\": na saída padrão)\n"
    "  --simular       com --reparar: diz o que seria feito e não escreve nada\n"
    "  --force         com --reparar: substitui NOVO, se já existe\n"
    "  --tudo          mostra todos os casos, não só os primeiros vinte\n"
    "  --help          mostra esta ajuda\n"
    "\n"
    "O reparo retira as ligações com o que não existe, põe em \"Sem Tema\" as músicas sem tema,\n"
    "junta temas de mesmo nome, refaz os índices e salva, de um arquivo danificado, cada linha\n"
    "que ainda pode ser lida.\n"
    "Músicas parecidas, sem título ou sem letra ficam como estão: a escolha é sua.\n"
    "\n"
    "Saída: 0 tudo em ordem (com --reparar: no catálogo novo, sem nada perdido); 1 algo foi\n"
    "encontrado ou perdido, como foi dito; 2 não feito.\n"_qs;

QString Counts(const CatalogueCheck::Result& result)
{
    return u"%1 música(s), %2 tema(s), %3 lista(s)"_qs.arg(result.songs)
        .arg(result.themes)
        .arg(result.setlists);
}

void TellCases(QTextStream& out, const QStringList& cases, bool everything)
{
    const qsizetype shown = everything ? cases.size() : qMin(cases.size(), Shown);
    for (qsizetype i = 0; i < shown; ++i)
        out << u"    "_qs << cases[i] << u'\n';
    if (shown < cases.size())
        out << u"    e mais "_qs << cases.size() - shown << u" (--tudo mostra todos)\n"_qs;
}

void TellFindings(QTextStream& out, const CatalogueCheck::Result& result,
                  const VerificationOrder& order)
{
    for (const CatalogueCheck::Finding& finding : result.findings) {
        out << (finding.mendable ? u"* "_qs : u"- "_qs) << finding.what << u": "_qs << finding.count
            << u'\n';
        TellCases(out, finding.cases, order.everything);
    }
}

bool HasMendable(const CatalogueCheck::Result& result)
{
    return std::any_of(result.findings.begin(), result.findings.end(),
                       [](const CatalogueCheck::Finding& finding) { return finding.mendable; });
}

int TellResult(QTextStream& out, const CatalogueCheck::Result& result,
               const VerificationOrder& order)
{
    out << Showable(order.catalogue) << u": "_qs << Counts(result) << u'\n';
    if (result.findings.isEmpty()) {
        out << u"Tudo em ordem.\n"_qs;
        return AllWell;
    }
    TellFindings(out, result, order);
    if (order.repaired.isEmpty())
        out << u"Nada foi alterado."_qs
            << (HasMendable(result) ? u" --reparar NOVO cuida do que está marcado com *.\n"_qs
                                    : u"\n"_qs);
    return SomethingFound;
}

/// @throws RuntimeError, which tells that it was the new catalogue where something failed
CatalogueRepair::Outcome NewCatalogue(const CheckedCatalogue& catalogue, const QString& path,
                                      const CatalogueCheck::Progress& progress)
{
    try {
        return CatalogueRepair::Repair(catalogue, path, progress);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(),
                           u"o catálogo novo não pôde ser feito: "_qs + error.WhatFailed(),
                           error.Description());
    }
}

int Repair(const CheckedCatalogue& catalogue, const VerificationOrder& order, QTextStream& out,
           const CatalogueCheck::Progress& progress)
{
    RepairedFile file(order.repaired, order.force, order.simulate);
    const CatalogueRepair::Outcome outcome = NewCatalogue(catalogue, file.DraftPath(), progress);
    file.Keep();
    out << (order.simulate ? u"\nSeria escrito: "_qs : u"\nEscrito: "_qs)
        << Showable(order.repaired) << u", com "_qs << Counts(outcome.after) << u'\n';
    TellCases(out, outcome.mended, true);
    if (!outcome.lost.isEmpty()) {
        out << u"Perdido: "_qs << outcome.lost.size() << u'\n';
        TellCases(out, outcome.lost, order.everything);
    }
    if (!outcome.after.findings.isEmpty()) {
        out << u"No catálogo novo continua como estava:\n"_qs;
        for (const CatalogueCheck::Finding& finding : outcome.after.findings)
            out << u"- "_qs << finding.what << u": "_qs << finding.count << u'\n';
    }
    if (order.simulate)
        out << u"Simulação: nada foi escrito.\n"_qs;
    return outcome.lost.isEmpty() && outcome.after.findings.isEmpty() ? AllWell : SomethingFound;
}

QString FromStandardInput(QTemporaryFile& file)
{
    const QString notKept = KeepInput(file);
    if (!notKept.isEmpty())
        throw RuntimeError(RuntimeError::FileFailure, notKept, QString());
    file.close();
    return file.fileName();
}

int Work(const VerificationOrder& order, QTextStream& out, QTextStream& err)
{
    Messages messages(err);
    const auto progress = [&messages](qsizetype done, qsizetype all, const QString& what) {
        messages.Progress(done, all, what);
    };
    try {
        if (!order.repaired.isEmpty())
            RepairedFile::CheckPlace(order.repaired, order.catalogue, order.force);
        QTemporaryFile piped;
        const CheckedCatalogue catalogue(order.catalogue == u"-" ? FromStandardInput(piped)
                                                                 : order.catalogue);
        const CatalogueCheck::Result result = CatalogueCheck::Check(catalogue, progress);
        const int code = TellResult(out, result, order);
        return order.repaired.isEmpty() ? code : Repair(catalogue, order, out, progress);
    } catch (const RuntimeError& error) {
        out.flush();
        // What fails with a file besides the catalogue names it.
        const bool isOfCatalogue = error.Number() != RuntimeError::FileFailure;
        messages.Tell(isOfCatalogue ? QString(order.catalogue + u": " + Reason(error))
                                    : Reason(error));
        return NotDone;
    }
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    if (arguments.contains(u"--help"_qs) || arguments.contains(u"-h"_qs)) {
        out << Help;
        return AllWell;
    }
    QString wrong;
    const std::optional<VerificationOrder> order = ReadVerificationOrder(arguments, wrong);
    if (order)
        // The catalogue itself may be on the standard output.
        return Work(*order, order->repaired == u"-" ? err : out, err);
    err << (arguments.isEmpty() ? QString(wrong + u"\n\n" + Help) : WrongUse(wrong, Help));
    return NotDone;
}

} // namespace

int main(int argc, char** argv)
{
    SilenceLibraries();
    const QCoreApplication application(argc, argv);
    const Console console;
    QTextStream out(stdout);
    QTextStream err(stderr);
    const int code = Run(QCoreApplication::arguments().mid(1), out, err);
    out.flush();
    if (out.status() == QTextStream::Ok)
        return code;
    err << u"não foi possível escrever na saída padrão\n"_qs;
    return NotDone;
}
