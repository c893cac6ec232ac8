#include "tools/VerificationOrder.h"

#include "tools/FileArgument.h"

std::optional<VerificationOrder> ReadVerificationOrder(const QStringList& arguments, QString& wrong)
{
    VerificationOrder order;
    const auto fail = [&wrong](const QString& why) {
        wrong = why;
        return std::nullopt;
    };
    bool options = true;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (!options || !argument.startsWith(u'-') || argument == u"-") {
            if (!order.catalogue.isEmpty())
                return fail(u"só um catálogo de cada vez: "_qs + argument);
            if (argument.isEmpty())
                return fail(u"o nome do catálogo está vazio"_qs);
            order.catalogue = FileArgument(argument);
        } else if (argument == u"--") {
            options = false;
        } else if (argument == u"--simular") {
            order.simulate = true;
        } else if (argument == u"--force") {
            order.force = true;
        } else if (argument == u"--tudo") {
            order.everything = true;
        } else if (argument == u"--reparar" || argument.startsWith(u"--reparar=")) {
            const bool joined = argument != u"--reparar";
            order.repaired =
                FileArgument(joined ? argument.section(u'=', 1) : arguments.value(++i));
            const bool isOption =
                !joined && order.repaired.startsWith(u'-') && order.repaired != u"-";
            if (order.repaired.isEmpty() || isOption)
                return fail(u"--reparar precisa do nome de um catálogo novo"_qs);
        } else {
            return fail(u"opção desconhecida: "_qs + argument);
        }
    }
    if (order.catalogue.isEmpty())
        return fail(u"falta o catálogo"_qs);
    if (order.repaired.isEmpty() && (order.simulate || order.force))
        return fail(u"--simular e --force só têm sentido com --reparar"_qs);
    return order;
}
