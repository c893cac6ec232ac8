#include "pictures/TelasLista.h"

namespace Telas {

void ShowSetlists(Pictures& pictures, Principal& form)
{
    form.mnuLista_Click();
    pictures.Save(QStringLiteral("lista-vazia"));
    SaveBox(pictures, QStringLiteral("lista-sem-nome"),
            [&form] { Click(form, QStringLiteral("cmdSalvar")); });
    const auto store = [&form](const QString& name, const QString& date) {
        for (const auto& [box, text] : {std::pair{"txtNome", name}, std::pair{"txtData", date}}) {
            auto* edit = form.findChild<QLineEdit*>(QString::fromLatin1(box));
            edit->selectAll();
            QTest::keyClicks(edit, text);
        }
        for (const int row : {2, 0, 3})
            DoubleClick(form, "lstMusicasLista", row);
        WhenBoxIsOpen(form, [](QDialog& box) { box.reject(); });
        Click(form, QStringLiteral("cmdSalvar"));
    };
    store(QStringLiteral("Ensaio de quinta"), QStringLiteral("05032009"));
    store(QStringLiteral("Culto de domingo"), QStringLiteral("08032009"));
    store(QStringLiteral("Natal"), QStringLiteral("24122008"));
    SaveBox(pictures, QStringLiteral("lista-mensagem"),
            [&form] { DoubleClick(form, "lstLista", 1); });
    WhenBoxIsOpen(form, [](QDialog& dialog) { Click(dialog, QStringLiteral("cmdEditar")); });
    DoubleClick(form, "lstLista", 1);
    DoubleClick(form, "lstMusicasLista", 1);
    auto* chosen = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicasSelecionadas"));
    QTest::mouseClick(chosen->viewport(), Qt::LeftButton, {},
                      chosen->visualRect(chosen->model()->index(1, 0)).center());
    pictures.Save(QStringLiteral("lista-editada"));
    SaveBox(pictures, QStringLiteral("lista-descartar"),
            [&form] { Click(form, QStringLiteral("cmdLimpar")); });
}

} // namespace Telas
