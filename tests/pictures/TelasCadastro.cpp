#include "pictures/TelasCadastro.h"

#include "support/PlainSqlite.h"

namespace Telas {

namespace {

void SaveFailedSave(Pictures& pictures, QWidget& form, const QString& name)
{
    SaveBox(pictures, name, [&form] { Click(form, QStringLiteral("cmdCadSalvar")); });
}

/// Both ways to a theme's name and what they answer with.
void ShowThemes(Pictures& pictures, Principal& form)
{
    auto* themes = form.findChild<QAbstractItemView*>(QStringLiteral("lstCadTema"));
    const auto add = [&form] { Click(form, QStringLiteral("cmdCadTema")); };
    const auto rename = [themes] {
        QTest::mouseClick(themes->viewport(), Qt::RightButton, {},
                          themes->visualRect(themes->model()->index(0, 0)).center());
    };
    SaveBox(pictures, QStringLiteral("cadastro-novo-tema"), add);
    SaveBox(pictures, QStringLiteral("cadastro-tema-em-uso"),
            [themes] { QTest::keyClick(themes, Qt::Key_Delete); });
    SaveBox(pictures, QStringLiteral("cadastro-renomeia-tema"), rename);
    const QString known = themes->model()->index(1, 0).data().toString().toUpper();
    SaveAnswer(pictures, QStringLiteral("cadastro-tema-repetido"), known, add);
    SaveAnswer(pictures, QStringLiteral("cadastro-tema-alterado"), QStringLiteral("Abertura"),
               rename);
    SaveAnswer(pictures, QStringLiteral("cadastro-tema-cadastrado"), QStringLiteral("Advento"),
               add);
    pictures.Save(QStringLiteral("cadastro-temas"));
    // The new one, which no song has.
    const auto fresh = themes->model()->match(themes->model()->index(0, 0), Qt::DisplayRole,
                                              QStringLiteral("Advento"), 1, Qt::MatchExactly);
    QTest::mouseClick(themes->viewport(), Qt::LeftButton, {},
                      themes->visualRect(fresh.value(0)).center());
    SaveBox(pictures, QStringLiteral("cadastro-exclui-tema"),
            [themes] { QTest::keyClick(themes, Qt::Key_Delete); });
}

/// The keyboard stays where it is when panels change, so it may meet a list of suggestions.
void ShowKeyboardOverSuggestions(Pictures& pictures, Principal& form)
{
    form.mnuPesquisa_Click();
    Click(form, QStringLiteral("imgTeclado_0"));
    form.mnuCadastro_Click();
    Click(form, QStringLiteral("lblTecla_65"));
    pictures.Save(QStringLiteral("cadastro-teclado-sugestoes"));
    Click(form, QStringLiteral("imgFecharTeclado"));
}

} // namespace

void ShowEntry(Pictures& pictures, Principal& form, const QString& catalogue)
{
    const auto box = [&form](const char* name) {
        auto* found = form.findChild<QWidget*>(QString::fromLatin1(name));
        found->setFocus();
        return found;
    };
    const auto checkTheme = [&form](int row) {
        auto* themes = form.findChild<QAbstractItemView*>(QStringLiteral("lstCadTema"));
        QTest::mouseClick(themes->viewport(), Qt::LeftButton, {},
                          themes->visualRect(themes->model()->index(row, 0)).center());
    };
    BringToFront(form);
    form.mnuCadastro_Click();
    pictures.Save(QStringLiteral("cadastro-nova"));
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-sem-titulo"));
    QTest::keyClicks(box("txtCadTitulo"), QStringLiteral("Peixe vivo de novo"));
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-sem-referencia"));
    QTest::keyClicks(box("txtCadReferencia"), QStringLiteral("Tradicional"));
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-sem-letra"));
    QTest::keyClicks(box("txtCadLetra_0"), QStringLiteral("C     G7"));
    QTest::keyClick(box("txtCadLetra_0"), Qt::Key_Return);
    QTest::keyClicks(box("txtCadLetra_0"), QStringLiteral("Como pode"));
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-sem-tema"));
    checkTheme(0);
    {
        PlainSqlite other(catalogue);
        other.Run("BEGIN EXCLUSIVE");
        SaveFailedSave(pictures, form, QStringLiteral("cadastro-falha"));
        other.Run("ROLLBACK");
    }
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-guardada"));
    SaveFailedSave(pictures, form, QStringLiteral("cadastro-atualizada"));
    SaveBox(pictures, QStringLiteral("cadastro-limpar"),
            [&form] { Click(form, QStringLiteral("cmdCadLimpar")); });
    ShowThemes(pictures, form);
    form.Inicializa_Cadastro(2);
    pictures.Save(QStringLiteral("cadastro-carregada"));
    Click(form, QStringLiteral("lblMostraMusica_1"));
    pictures.Save(QStringLiteral("cadastro-versao-2"));
    SaveBox(pictures, QStringLiteral("cadastro-excluir"),
            [&form] { Click(form, QStringLiteral("cmdExcluir")); });
    ShowKeyboardOverSuggestions(pictures, form);
}

void ShowSuggestions(Pictures& pictures, frmPrincipal& form)
{
    BringToFront(form);
    form.mnuCadastro_Click();
    const auto type = [&](const QString& name, const QString& text, const QString& picture) {
        auto* box = form.findChild<QLineEdit*>(name);
        box->setFocus();
        QTest::keyClicks(box, text);
        pictures.Save(picture);
    };
    type(QStringLiteral("txtCadTitulo"), QStringLiteral("a"), QStringLiteral("sugestoes-titulo"));
    type(QStringLiteral("txtCadTitulo"), QStringLiteral("zzz"),
         QStringLiteral("sugestoes-titulo-nenhuma"));
    type(QStringLiteral("txtCadReferencia"), QStringLiteral("c"),
         QStringLiteral("sugestoes-referencia"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    pictures.Save(QStringLiteral("sugestoes-referencia-escolha"));
}

} // namespace Telas
