// Export and import.

#include "Actions.h"
#include "Musician.h"

#include "controls/ListaMusicas.h"

#include <QDir>
#include <QFile>

namespace {

bool Exports(Musician& user)
{
    if (!user.GoToSearch())
        return true;
    user.AwaitSearch();
    auto* list = user.Seen<ListaMusicas>("lstMusicas");
    if (list->ListCount() == 0)
        user.Click("lblAlfa_26");
    for (int i = user.chance.Below(6); i > 0 && list->ListCount() > 0; --i)
        Hands::ClickRow(list, user.chance.Below(list->ListCount()), Qt::LeftButton,
                        Qt::ControlModifier);
    user.Choose("Exportar");
    Hands::Settle();
    if (user.Heard(u" com sucesso!"_qs))
        user.journal.Count("exports");
    return true;
}

/// Files that are no exchange files, and one whose end is missing, are refused.
void LeavesADamagedFile(Musician& user)
{
    static const QByteArrayList contents{
        "", "no exchange file", "<musicas><musica><titulo>Corte</titulo>",
        "<musicas><musica><titulo>A & B</titulo></musica></musicas>"};
    QFile file(user.files.filePath(u"ruim.mld"_qs));
    if (file.open(QIODevice::WriteOnly))
        file.write(user.chance.Of(contents));
}

bool Imports(Musician& user)
{
    if (user.Full())
        return false;
    QFile::remove(user.files.filePath(u"ruim.mld"_qs));
    if (user.chance.OneIn(8))
        LeavesADamagedFile(user);
    user.permitted.newSongs = true;
    user.permitted.themes = true;
    const auto before = user.watch->Rows().songs.size();
    user.Choose("Importar");
    Hands::Settle();
    const QString difference = user.watch->Look(user.permitted);
    user.Demand(difference.isEmpty(), difference);
    user.journal.Count("songs imported",
                       static_cast<int>(user.watch->Rows().songs.size() - before));
    // Files are not kept for ever.
    const QStringList files = QDir(user.files.path()).entryList(QDir::Files, QDir::Name);
    constexpr int MostFiles = 20;
    for (qsizetype i = 0; i + MostFiles < files.size(); ++i)
        QFile::remove(user.files.filePath(files[i]));
    return true;
}

} // namespace

void AddExchangeActions(QList<Action>& actions)
{
    actions += {{"export", 6, Exports}, {"import", 6, Imports}};
}
