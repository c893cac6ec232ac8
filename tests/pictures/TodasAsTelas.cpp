#include "pictures/TodasAsTelas.h"

#include "app/frmSplash.h"
#include "pictures/TelasCadastro.h"
#include "pictures/TelasExportacao.h"
#include "pictures/TelasLista.h"
#include "pictures/TelasTeclado.h"
#include "pictures/TelasVisualizador.h"

namespace Telas {

void ShowDelivered(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    auto* splash = new frmSplash(form, [&form] { form.Form_Load(QString()); });
    splash->Form_Load();
    splash->show();
    pictures.Save(QStringLiteral("abertura"));
    splash->Inicializar();
    WaitForSearch(form);
    pictures.Save(QStringLiteral("principal"));
    Type(form, QStringLiteral("zzz"));
    pictures.Save(QStringLiteral("principal-vazio"));
    Type(form, QStringLiteral("pei"));
    pictures.Save(QStringLiteral("principal-tres-letras"));
    ShowKeyboard(pictures, form);
    SaveBox(pictures, QStringLiteral("sobre"), [&form] { form.mnuSobre_Click(); });
    Type(form, QString());
    ShowExport(pictures, form);
    ShowViewers(pictures, {1, 2, 3});
    ShowEditing(pictures);
    ShowEntry(pictures, form, catalogue);
    ShowSetlist(pictures, catalogue);
    BringToFront(form);
    form.mnuPesquisa_Click();
    ShowExportNotice(pictures, form, catalogue);
    ShowSetlists(pictures, form);
    ShowLongHeader(pictures, catalogue);
    form.close();
}

} // namespace Telas
