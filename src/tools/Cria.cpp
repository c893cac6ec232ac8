// melodario-cria: makes a new catalogue from a folder of seed files.

#include "runtime/RuntimeError.h"
#include "tools/FileArgument.h"
#include "tools/NewCatalogue.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr int Made = 0;
constexpr int Failed = 1;
constexpr int WrongUse = 2;

const QString Help = u"Uso: melodario-cria --dados PASTA ARQUIVO\n"
                     "\n"
                     "Cria um catálogo novo do Melodario em ARQUIVO, que não pode existir.\n"
                     "\n"
                     "  --dados PASTA  onde estão schema.sql, fixed.sql, themes.txt e songs/*.txt\n"
                     "  --help         mostra esta ajuda\n"
                     "\n"
                     "Saída: 0 catálogo criado, 1 erro nos dados ou no arquivo, 2 uso errado.\n"_qs;

/// @return the program's exit code; what is to be said goes to out and err
int Cria(QStringList arguments, QTextStream& out, QTextStream& err)
{
    if (arguments.contains(u"--help") || arguments.contains(u"-h")) {
        out << Help;
        return Made;
    }
    QString data;
    const qsizetype option = arguments.indexOf(u"--dados");
    if (option >= 0 && option + 1 < arguments.size()) {
        data = arguments.takeAt(option + 1);
        arguments.removeAt(option);
    }
    if (data.isEmpty() || arguments.size() != 1 || arguments.first().startsWith(u'-')) {
        err << Help;
        return WrongUse;
    }
    try {
        const CatalogueCounts counts = MakeCatalogue(data, FileArgument(arguments.first()));
        out << u"%1: %2 temas, %3 músicas\n"_qs.arg(arguments.first())
                   .arg(counts.themes)
                   .arg(counts.songs);
        return Made;
    } catch (const RuntimeError& error) {
        err << error.WhatFailed() << u'\n';
        return Failed;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return Cria(application.arguments().mid(1), out, err);
}
