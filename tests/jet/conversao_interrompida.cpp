// Converts a catalogue in its place and stands still at one of the boundaries on the way:
// conversao_interrompida CATALOGUE converte BOUNDARY

#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "support/Interruption.h"

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString& path = arguments.at(1);
    Interruption::Boundaries boundaries(arguments.at(3).toInt());
    // How often it tells depends on the machine; how far it is does not. The last two stand before
    // the old file gets its second name and before the new one takes its place.
    const QList<double> stops{0, 0.25, 0.5, 0.75, 0.99, 1};
    qsizetype next = 0;
    JetConversion::ConvertInPlace(path, CatalogueSwap::KeptPath(path), [&](double part) {
        for (; next < stops.size() && stops[next] <= part; ++next)
            boundaries.Reached();
    });
    boundaries.Reached();
    return 0;
}
