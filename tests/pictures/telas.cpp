// Makes a picture of every screen: telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador]
// With the third word, of the viewer only: it has to fit on screens that the main form is not for.
// Works on copies in a folder of its own. Real forms, driven by real events; where the platform is
// a virtual screen, what is saved is what that screen shows.

#include "TelasImportacao.h"

#include "app/Main.h"
#include "app/frmSplash.h"
#include "controls/FileDialogs.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <functional>
#include <utility>

namespace {

constexpr int ManySongs = 20000;
constexpr int PaintMs = 400; // a window manager maps, paints and raises within this
constexpr int PollMs = 20;
constexpr int CountdownMs = 2100;
constexpr int SearchMs = 1200; // the clock of the search and the search itself

class Pictures : public QObject
{
public:
    explicit Pictures(QString folder)
        : m_folder(std::move(folder))
    {
    }

    void Save(const QString& name)
    {
        QTest::qWait(PaintMs);
        const QScreen* screen = QApplication::primaryScreen();
        const QSize size = (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize();
        const QString file = QStringLiteral("%1/%2-%3x%4.png")
                                 .arg(m_folder, name)
                                 .arg(size.width())
                                 .arg(size.height());
        const bool saved = QApplication::primaryScreen()->grabWindow(0).save(file);
        QTextStream(stdout) << (saved ? "  " : "  NOT SAVED ") << file << Qt::endl;
    }

private:
    QString m_folder;
};

/// The main form on a catalogue of our choice instead of the one that config.ini names.
class Principal : public frmPrincipal
{
public:
    explicit Principal(QString catalogue)
        : m_catalogue(std::move(catalogue))
    {
    }

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(TestCatalogue::ConnectionString(m_catalogue));
        Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
    }

private:
    QString m_catalogue;
};

void Type(QWidget& form, const QString& text)
{
    auto* box = form.findChild<QLineEdit*>(QStringLiteral("txtTitulo"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    QTest::qWait(SearchMs);
}

void Click(QWidget& viewer, const QString& name)
{
    QTest::mouseClick(viewer.findChild<QWidget*>(name), Qt::LeftButton);
}

frmVisualizar* Open(qint64 song)
{
    auto* viewer = new frmVisualizar; // deletes itself when closed
    viewer->ID_Musica = static_cast<double>(song);
    viewer->Show();
    return viewer;
}

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

void ShowKeyboard(Pictures& pictures, const QWidget& form)
{
    const auto click = [&form](const QString& name) {
        QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton);
        QTest::qWait(SearchMs);
    };
    for (int i = 0; i < 3; ++i) {
        click(QStringLiteral("imgTeclado_%1").arg(i));
        pictures.Save(QStringLiteral("teclado-%1").arg(i));
    }
    // ~ and A on the keyboard: the accent joined, the key touched last highlighted.
    click(QStringLiteral("lblTecla_126"));
    click(QStringLiteral("lblTecla_65"));
    pictures.Save(QStringLiteral("teclado-acento"));
    click(QStringLiteral("imgFecharTeclado"));
}

/// Waits for a box, however long the store or a search takes before it opens.
void WhenBoxIsOpen(QObject& context, const std::function<void(QDialog&)>& act)
{
    QTimer::singleShot(PollMs, &context, [&context, act] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            act(*box);
        else
            WhenBoxIsOpen(context, act);
    });
}

void SaveAndClose(Pictures& pictures, const QString& name, QDialog& box)
{
    pictures.Save(name);
    QTest::keyClick(&box, Qt::Key_Escape);
}

/// Does something that opens a box, and takes the box's picture before closing it.
void SaveBox(Pictures& pictures, const QString& name, const std::function<void()>& open)
{
    WhenBoxIsOpen(pictures, [&pictures, name](QDialog& box) { SaveAndClose(pictures, name, box); });
    open();
}

void SaveFailedSave(Pictures& pictures, QWidget& form, const QString& name)
{
    SaveBox(pictures, name, [&form] { Click(form, QStringLiteral("cmdCadSalvar")); });
}

/// Does something that opens an input box, types into it, and takes the picture of the message box
/// that answers.
void SaveAnswer(Pictures& pictures, const QString& name, const QString& typed,
                const std::function<void()>& open)
{
    WhenBoxIsOpen(pictures, [&pictures, name, typed](QDialog& input) {
        auto* edit = input.findChild<QLineEdit*>();
        edit->setText(typed); // key clicks know ASCII alone
        QTest::keyClick(edit, Qt::Key_Return);
        WhenBoxIsOpen(pictures,
                      [&pictures, name](QDialog& box) { SaveAndClose(pictures, name, box); });
    });
    open();
}

/// A song corrected where it is shown, in the middle of a list, with both boxes that it asks with.
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
    const auto point = [](const QString& name) {
        return [name] {
            QWidget* dialog = QApplication::activeModalWidget();
            const QWidget* button = dialog->findChild<QWidget*>(name);
            QTest::mouseMove(dialog->windowHandle(),
                             button->mapTo(dialog, button->rect().center()));
        };
    };
    QTimer::singleShot(0, viewer, point(QStringLiteral("cmdNaoSalvar")));
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
    themes->setFocus();
    QTest::keyClick(themes, Qt::Key_Home);
    QTest::keyClick(themes, Qt::Key_Down); // the new one, which no song has
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

/// The entry panel: for a new song with each box that a save answers, and with a stored song.
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

/// The viewer on the first, a middle and the last song of a setlist, and with its list open.
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

/// A header of which nothing fits, and one that lacks what stands in its middle.
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

void DoubleClick(QWidget& form, const char* view, int row)
{
    auto* rows = form.findChild<QAbstractItemView*>(QString::fromLatin1(view));
    const QPoint place = rows->visualRect(rows->model()->index(row, 0)).center();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, place);
}

/// The setlist panel: empty, in use, and with each box that it asks with.
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
        QTimer::singleShot(PaintMs, &form, [] {
            if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                box->reject();
        });
        Click(form, QStringLiteral("cmdSalvar"));
    };
    store(QStringLiteral("Ensaio de quinta"), QStringLiteral("05032009"));
    store(QStringLiteral("Culto de domingo"), QStringLiteral("08032009"));
    store(QStringLiteral("Natal"), QStringLiteral("24122008"));
    SaveBox(pictures, QStringLiteral("lista-mensagem"),
            [&form] { DoubleClick(form, "lstLista", 1); });
    QTimer::singleShot(
        0, &form, [] { Click(*QApplication::activeModalWidget(), QStringLiteral("cmdEditar")); });
    DoubleClick(form, "lstLista", 1);
    DoubleClick(form, "lstMusicasLista", 1);
    auto* chosen = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicasSelecionadas"));
    QTest::mouseClick(chosen->viewport(), Qt::LeftButton, {},
                      chosen->visualRect(chosen->model()->index(1, 0)).center());
    pictures.Save(QStringLiteral("lista-editada"));
    SaveBox(pictures, QStringLiteral("lista-descartar"),
            [&form] { Click(form, QStringLiteral("cmdLimpar")); });
}

/// Always chooses the same place.
class ChosenPlace final : public FileDialogs
{
public:
    explicit ChosenPlace(QString place)
        : m_place(std::move(place))
    {
        SetFileDialogs(this);
    }
    ~ChosenPlace() override { SetFileDialogs(nullptr); }
    QString Choose(QWidget*, const Pedido_Arquivo&) override { return m_place; }

private:
    QString m_place;
};

/// Does something with the first modal window of a kind that comes up while open runs, and closes
/// it. Events run before it does: lists are filled and songs written.
template <typename Window>
void WithWindow(const std::function<void()>& open, const std::function<void(Window&)>& act)
{
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<Window> window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || std::exchange(came, true))
            return;
        act(*window);
        if (window)
            window->close();
    });
    watch.start(0);
    open();
}

void InExportForm(Principal& form, const std::function<void(QDialog&)>& act)
{
    WithWindow<QDialog>([&form] { form.mnuExportar_Click(); }, act);
}

/// Exports from the form and takes a picture of the message that comes in the end.
void SaveExported(Pictures& pictures, const QString& name, QDialog& dialog)
{
    WithWindow<QMessageBox>([&dialog] { Click(dialog, QStringLiteral("cmdExportar")); },
                            [&](QMessageBox&) { pictures.Save(name); });
}

/// The export form before it writes, with its notice, and each box that it asks or answers with.
void ShowExport(Pictures& pictures, Principal& form)
{
    auto* songs = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"));
    songs->clearSelection();
    SaveBox(pictures, QStringLiteral("exportar-nenhuma"), [&form] { form.mnuExportar_Click(); });
    songs->selectAll();
    const QTemporaryDir folder;
    InExportForm(form, [&](QDialog& dialog) {
        pictures.Save(QStringLiteral("exportar"));
        SaveBox(pictures, QStringLiteral("exportar-salvar"),
                [&dialog] { Click(dialog, QStringLiteral("cmdExportar")); });
        QTest::keyClick(dialog.findChild<QWidget*>(QStringLiteral("chkArquivo")), Qt::Key_Space);
        SaveBox(pictures, QStringLiteral("exportar-pasta"),
                [&dialog] { Click(dialog, QStringLiteral("cmdExportar")); });
        const ChosenPlace place(folder.path());
        SaveExported(pictures, QStringLiteral("exportar-arquivos-gerados"), dialog);
    });
    InExportForm(form, [&](QDialog& dialog) {
        const ChosenPlace place(folder.filePath(QStringLiteral("domingo.mld")));
        SaveExported(pictures, QStringLiteral("exportar-arquivo-gerado"), dialog);
    });
    InExportForm(form, [&](QDialog& dialog) {
        const ChosenPlace place(QStringLiteral("/proc/domingo.mld"));
        SaveExported(pictures, QStringLiteral("exportar-recusado"), dialog);
    });
}

/// With songs that a file cannot hold as they are.
void ShowExportNotice(Pictures& pictures, Principal& form, const QString& catalogue)
{
    PlainSqlite database(catalogue);
    database.Run("UPDATE MUSICA SET TITULO = 'Rock & roll do sertão' WHERE ID = 2;"
                 "UPDATE MUSICA SET REFERENCIA = 'Tradição ♪' WHERE ID IN (3, 4, 5)");
    form.Pesquisa();
    auto* songs = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"));
    songs->selectAll();
    InExportForm(form, [&](QDialog&) { pictures.Save(QStringLiteral("exportar-aviso")); });
}

/// While many songs are written.
void ShowExportProgress(Pictures& pictures, Principal& form)
{
    form.mnuPesquisa_Click();
    form.Pesquisa();
    form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"))->selectAll();
    const QTemporaryDir folder;
    const ChosenPlace place(folder.filePath(QStringLiteral("todas.mld")));
    InExportForm(form, [&](QDialog& dialog) {
        pictures.Save(QStringLiteral("exportar-20000"));
        const auto* bar = dialog.findChild<QProgressBar*>();
        bool saved = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &dialog, [&] {
            if (bar->isVisible() && bar->value() > ManySongs / 4 && !std::exchange(saved, true))
                pictures.Save(QStringLiteral("exportar-andamento"));
        });
        watch.start(0);
        SaveExported(pictures, QStringLiteral("exportar-20000-gerado"), dialog);
    });
}

void ShowDelivered(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    auto* splash = new frmSplash(form, [&form] { form.Form_Load(QString()); });
    splash->Form_Load();
    splash->show();
    pictures.Save(QStringLiteral("abertura"));
    splash->Inicializar();
    QTest::qWait(SearchMs);
    pictures.Save(QStringLiteral("principal"));
    Type(form, QStringLiteral("zzz"));
    pictures.Save(QStringLiteral("principal-vazio"));
    Type(form, QStringLiteral("pei"));
    pictures.Save(QStringLiteral("principal-tres-letras"));
    ShowKeyboard(pictures, form);
    Type(form, QString());
    ShowExport(pictures, form);
    ShowViewers(pictures, {1, 2, 3});
    ShowEditing(pictures);
    ShowEntry(pictures, form, catalogue);
    ShowSetlist(pictures, catalogue);
    form.mnuPesquisa_Click();
    ShowExportNotice(pictures, form, catalogue);
    ShowSetlists(pictures, form);
    ShowLongHeader(pictures, catalogue);
    form.close();
}

void ShowViewerAlone(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    form.Form_Load(QString());
    ShowViewers(pictures, {1});
    ShowEditing(pictures);
    ShowSetlist(pictures, catalogue);
    ShowLongHeader(pictures, catalogue);
}

void AddManySongs(const TestCatalogue& catalogue)
{
    const qint64 theme = catalogue.AddTheme(QStringLiteral("Louvor"), 1);
    SongGenerator generator(1);
    QString insert = QStringLiteral("BEGIN;");
    for (int id = 1; id <= ManySongs; ++id) {
        const GeneratedSong song = generator.Next();
        insert += QStringLiteral("INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, TOM, VARIACAO, "
                                 "CATEGORIA, CONTADOR) VALUES ('%1','%2','%3','%4','%5',%6,%7);"
                                 "INSERT INTO TEMA_MUSICA VALUES (%8,%9);")
                      .arg(song.title, song.reference, song.text, song.key, song.variation)
                      .arg(song.category)
                      .arg(song.count)
                      .arg(id)
                      .arg(theme);
    }
    catalogue.Run(insert + u"COMMIT;");
}

/// Both suggestion lists, with nothing to suggest and with many.
void ShowSuggestions(Pictures& pictures, frmPrincipal& form)
{
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

void ShowMany(Pictures& pictures)
{
    const TestCatalogue catalogue;
    AddManySongs(catalogue);
    Principal form(catalogue.Path());
    form.Form_Load(QString());
    form.show();
    QTest::qWait(SearchMs);
    pictures.Save(QStringLiteral("principal-20000"));
    frmVisualizar* viewer = Open(ManySongs / 2);
    Click(*viewer, QStringLiteral("cmbLista"));
    pictures.Save(QStringLiteral("visualizador-categoria-aberta"));
    viewer->close();
    ShowSuggestions(pictures, form);
    ShowExportProgress(pictures, form);
    form.close();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    const bool viewer = words.value(3) == u"visualizador";
    if (words.size() != (viewer ? 4 : 3)) {
        QTextStream(stderr) << "telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador]"
                            << Qt::endl;
        return 2;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    Funcoes::Prepara(application);

    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("Melodario.mdb"));
    if (!QFile::copy(words.at(1), copy) || !QDir().mkpath(words.at(2))) {
        QTextStream(stderr) << "no such catalogue, or no place for the pictures" << Qt::endl;
        return 2;
    }
    Pictures pictures(words.at(2));
    if (viewer) {
        ShowViewerAlone(pictures, copy);
        return 0;
    }
    ShowDelivered(pictures, copy);
    ShowMany(pictures);
    ShowImport([&pictures](const QString& name) { pictures.Save(name); });
    return 0;
}
