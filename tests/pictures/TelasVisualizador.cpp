#include "pictures/TelasVisualizador.h"

#include "support/PlainSqlite.h"
#include "viewer/frmVisualizar.h"

#include <QComboBox>

namespace Telas {

namespace {

/// At the first speed and at the fastest, after the countdown's second tick.
void ShowScrolling(Pictures& pictures, frmVisualizar& viewer)
{
    QTest::qWait(CountdownMs);
    QTest::keyClick(&viewer, Qt::Key_Return);
    pictures.Save(QStringLiteral("visualizador-rolagem"));
    for (int i = 0; i < 13; ++i)
        QTest::keyClick(&viewer, Qt::Key_Right);
    pictures.Save(QStringLiteral("visualizador-rolagem-rapida"));
    for (int i = 0; i < 15; ++i)
        QTest::keyClick(&viewer, Qt::Key_Left);
    QTest::keyClick(&viewer, Qt::Key_Home);
}

} // namespace

void ShowViewers(Pictures& pictures, const QList<qint64>& songs)
{
    int number = 0;
    for (const qint64 song : songs) {
        frmVisualizar* viewer = Open(song);
        pictures.Save(QStringLiteral("visualizador-%1").arg(++number));
        if (number == 1) {
            ShowScrolling(pictures, *viewer);
            for (int i = 0; i < 2; ++i)
                Click(*viewer, QStringLiteral("cmdAumentaFonte"));
            pictures.Save(QStringLiteral("visualizador-fonte-maior"));
            for (int i = 0; i < 5; ++i)
                Click(*viewer, QStringLiteral("cmdDiminuiFonte"));
            pictures.Save(QStringLiteral("visualizador-fonte-menor"));
            for (int i = 0; i < 3; ++i)
                Click(*viewer, QStringLiteral("cmdAumentaFonte"));
            Click(*viewer, QStringLiteral("cmdLetra"));
            pictures.Save(QStringLiteral("visualizador-sem-cifras"));
        }
        viewer->close();
        QTest::qWait(PaintMs);
    }
}

void ShowEditing(Pictures& pictures)
{
    frmVisualizar* viewer = Open(2);
    Click(*viewer, QStringLiteral("cmdEditar"));
    QWidget* sheet = viewer->focusWidget();
    QTest::keyClick(sheet, Qt::Key_End);
    QTest::keyClicks(sheet, QStringLiteral("   Am7"));
    pictures.Save(QStringLiteral("visualizador-edicao"));
    QTest::keyClick(sheet, Qt::Key_Tab);
    pictures.Save(QStringLiteral("visualizador-edicao-botao"));
    const auto point = [](QDialog& dialog) {
        const auto* button = dialog.findChild<QWidget*>(QStringLiteral("cmdNaoSalvar"));
        QTest::mouseMove(dialog.windowHandle(), button->mapTo(&dialog, button->rect().center()));
    };
    WhenBoxIsOpen(*viewer, point);
    SaveBox(pictures, QStringLiteral("visualizador-mensagem"),
            [viewer] { Click(*viewer, QStringLiteral("cmdSalvar")); });
    SaveBox(pictures, QStringLiteral("visualizador-mensagem-inicio"), [viewer] {
        QTest::keyClick(viewer->findChild<QWidget*>(QStringLiteral("cmdSalvar")), Qt::Key_Return);
    });
    SaveBox(pictures, QStringLiteral("visualizador-descartar"),
            [viewer] { Click(*viewer, QStringLiteral("cmdDescartar")); });
    delete viewer;
    QTest::qWait(PaintMs);
}

void ShowSetlist(Pictures& pictures, const QString& catalogue)
{
    PlainSqlite database(catalogue);
    database.Run("INSERT INTO LISTA (NOME, DATA) VALUES ('Domingo', '2026-11-22')");
    database.Run("INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM) "
                 "SELECT (SELECT MAX(ID) FROM LISTA), ID, ID - 1 FROM MUSICA WHERE ID <= 9");
    auto* viewer = new frmVisualizar; // deletes itself when closed
    viewer->ID_Lista = 1;
    viewer->Show();
    pictures.Save(QStringLiteral("visualizador-lista-primeira"));
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(viewer, Qt::Key_P);
    pictures.Save(QStringLiteral("visualizador-lista-do-meio"));
    Click(*viewer, QStringLiteral("cmbLista"));
    pictures.Save(QStringLiteral("visualizador-lista-aberta"));
    viewer->findChild<QComboBox*>(QStringLiteral("cmbLista"))->hidePopup();
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(viewer, Qt::Key_P);
    pictures.Save(QStringLiteral("visualizador-lista-ultima"));
    viewer->close();
    QTest::qWait(PaintMs);
}

void ShowLongHeader(Pictures& pictures, const QString& catalogue)
{
    PlainSqlite database(catalogue);
    database.Run("INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, "
                 "CATEGORIA, CONTADOR) SELECT 'Cantiga de roda que as crianças cantavam na praça "
                 "depois da missa, com todas as suas estrofes', 'Tradicional, recolhida no sertão "
                 "por quem a ouviu cantar ao pé da fogueira', MUSICA, MUSICA2, TOM, "
                 "'m7 com quinta diminuta e nona', CATEGORIA, 0 FROM MUSICA WHERE ID = 2");
    database.Run("INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) "
                 "SELECT (SELECT MAX(ID) FROM MUSICA), ID FROM TEMA");
    const qint64 song =
        database.Rows(QStringLiteral("SELECT MAX(ID) FROM MUSICA"))[0][0].toLongLong();
    frmVisualizar* viewer = Open(song);
    pictures.Save(QStringLiteral("visualizador-cabecalho-longo"));
    viewer->close();
    database.Run("UPDATE MUSICA SET TITULO = 'Peixe vivo', REFERENCIA = '', VARIACAO = 'm' "
                 "WHERE ID = (SELECT MAX(ID) FROM MUSICA)");
    viewer = Open(song);
    pictures.Save(QStringLiteral("visualizador-cabecalho-sem-referencia"));
    viewer->close();
    QTest::qWait(PaintMs);
}

} // namespace Telas
