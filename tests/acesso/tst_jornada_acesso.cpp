// The program as somebody uses it who does not see it: every step goes over the accessibility bus,
// by what controls are called there and by what they offer to do. Nothing looks at the screen.

#include "acesso/BarramentoAcesso.h"
#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QTest>

#include <memory>

namespace {

// Keys by their numbers in X.
constexpr int Return = 0xff0d;
constexpr int Tab = 0xff09;
constexpr int Down = 0xff54;
constexpr int Space = 0x20;

} // namespace

class tst_JornadaAcesso : public QObject
{
    Q_OBJECT

private slots:
    void a_song_is_found_played_and_another_one_entered_without_a_look();

private:
    void Prepare();
    void SearchASong();
    void PlayIt();
    void EnterASong();
    void CheckATheme();
    void SaveAndLeave();

    void Write(const QString& box, const QString& text);
    void Press(const QString& role, const QString& name);
    void Await(const QString& role, const QString& name);

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<BarramentoAcesso> m_bus;
    std::unique_ptr<Installation> m_program;
};

/// Two songs with their themes: the one that is searched for and another one.
void tst_JornadaAcesso::Prepare()
{
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
    m_bus = std::make_unique<BarramentoAcesso>(m_screen->Environment());
    QVERIFY2(m_bus->ErrorText().isEmpty(), qPrintable(m_bus->ErrorText()));
    m_program = std::make_unique<Installation>();
    QVERIFY(m_program->AddCatalogue());
    PlainSqlite(m_program->Catalogue())
        .Run("INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 1), ('Natal', 2);"
             "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, "
             "CONTADOR) VALUES ('Água clara', 'Tradicional', 'C  G7' || char(13, 10) || 'Corre', "
             "'', 'C', 'm', 1, 0), ('Noite', 'Ana', 'D', 'D', 'D', '', 1, 0);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1), (2, 1)");
    m_program->Start(m_bus->Environment());
    Await(u"push button"_qs, u"2 Registro(s) Encontrado(s)."_qs);
}

void tst_JornadaAcesso::Await(const QString& role, const QString& name)
{
    QVERIFY2(m_bus->Espera(role, name), qPrintable(role + u' ' + name + m_bus->Relatorio()));
}

void tst_JornadaAcesso::Write(const QString& box, const QString& text)
{
    const auto found = m_bus->Espera(u"text"_qs, box);
    QVERIFY2(found, qPrintable(box + m_bus->Relatorio()));
    QVERIFY2(m_bus->Escreve(*found, text), qPrintable(box));
}

void tst_JornadaAcesso::Press(const QString& role, const QString& name)
{
    const auto found = m_bus->Espera(role, name);
    QVERIFY2(found, qPrintable(name + m_bus->Relatorio()));
    QVERIFY2(m_bus->Faz(*found, u"Press"_qs), qPrintable(name));
}

void tst_JornadaAcesso::SearchASong()
{
    Write(u"Título:"_qs, u"clara"_qs);
    Await(u"push button"_qs, u"1 Registro(s) Encontrado(s)."_qs);
    Await(u"tree item"_qs, u"Água clara (Cm)"_qs);
    QVERIFY(!m_bus->Acha(u"tree item"_qs, u"Noite (D)"_qs));
}

/// Enter in the title box opens the first song that was found.
void tst_JornadaAcesso::PlayIt()
{
    const auto box = m_bus->Espera(u"text"_qs, u"Título:"_qs);
    QVERIFY(m_bus->Faz(*box, u"SetFocus"_qs));
    QTRY_VERIFY(m_bus->Tem(*box, BarramentoAcesso::Focado));
    m_bus->Tecla(Return);
    Await(u"frame"_qs, u"Água clara (Tradicional)"_qs);
    const auto sheet = m_bus->Espera(u"text"_qs, u"Música, versão 2"_qs);
    QVERIFY2(sheet, qPrintable(m_bus->Relatorio()));
    QCOMPARE(m_bus->Texto(*sheet), u"C  G7\nCorre"_qs);
    Await(u"label"_qs, u"(Cm)"_qs);
    Press(u"push button"_qs, u"Subir meio tom"_qs);
    Await(u"label"_qs, u"(C#m)"_qs);
    QVERIFY2(m_bus->Texto(*sheet).contains(u"G#7"), qPrintable(m_bus->Texto(*sheet)));
    Press(u"push button"_qs, u"v.2"_qs);
    Await(u"push button"_qs, u"v.1"_qs);
    Press(u"push button"_qs, u"Fechar"_qs);
    QTRY_VERIFY(!m_bus->Acha(u"frame"_qs, u"Água clara (Tradicional)"_qs));
}

void tst_JornadaAcesso::EnterASong()
{
    Press(u"menu item"_qs, u"Cadastro"_qs);
    Await(u"push button"_qs, u"Adicionar Tema"_qs);
    Write(u"Título:"_qs, u"Canção da manhã"_qs);
    Write(u"Referência:"_qs, u"Tradicional"_qs);
    Write(u"Letra e cifra, versão 1"_qs, u"C     G7\nBom dia"_qs);
    Press(u"page tab"_qs, u"Letra v.2"_qs);
    Write(u"Letra e cifra, versão 2"_qs, u"D     A7\nBom dia"_qs);
}

/// The second theme of the list, by the keys that its items ask for.
void tst_JornadaAcesso::CheckATheme()
{
    const auto sheet = m_bus->Espera(u"text"_qs, u"Letra e cifra, versão 2"_qs);
    QVERIFY(m_bus->Faz(*sheet, u"SetFocus"_qs));
    QTRY_VERIFY(m_bus->Tem(*sheet, BarramentoAcesso::Focado));
    m_bus->Tecla(Tab);
    const auto themes = m_bus->Espera(u"list"_qs, u"Temas"_qs);
    QVERIFY2(themes, qPrintable(m_bus->Relatorio()));
    QTRY_VERIFY(!m_bus->Tem(*sheet, BarramentoAcesso::Focado));
    m_bus->Tecla(Down);
    m_bus->Tecla(Down);
    const auto theme = m_bus->Espera(u"list item"_qs, u"Natal"_qs);
    QTRY_VERIFY(m_bus->Tem(*theme, BarramentoAcesso::Focado));
    m_bus->Tecla(Space);
    QTRY_VERIFY(m_bus->Tem(*theme, BarramentoAcesso::Marcado));
}

void tst_JornadaAcesso::SaveAndLeave()
{
    Press(u"push button"_qs, u"Salvar"_qs);
    Await(u"label"_qs, u"Música Cadastrada com Sucesso!"_qs);
    PlainSqlite catalogue(m_program->Catalogue());
    QCOMPARE(
        catalogue.Rows(u"SELECT TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, CATEGORIA FROM "
                       "MUSICA WHERE ID = 3"_qs),
        QList<QStringList>({{u"Canção da manhã"_qs, u"Tradicional"_qs, u"C     G7\r\nBom dia"_qs,
                             u"D     A7\r\nBom dia"_qs, u"C"_qs, u"1"_qs}}));
    QCOMPARE(catalogue.Rows(u"SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA = 3"_qs),
             QList<QStringList>({{u"2"_qs}}));
    Press(u"push button"_qs, u"OK"_qs);
    QTRY_VERIFY(!m_bus->Acha(u"label"_qs, u"Música Cadastrada com Sucesso!"_qs));
    Press(u"menu item"_qs, u"Sair"_qs);
    QCOMPARE(m_program->WaitForEnd(), 0);
}

void tst_JornadaAcesso::a_song_is_found_played_and_another_one_entered_without_a_look()
{
    for (const auto step : {&tst_JornadaAcesso::Prepare, &tst_JornadaAcesso::SearchASong,
                            &tst_JornadaAcesso::PlayIt, &tst_JornadaAcesso::EnterASong,
                            &tst_JornadaAcesso::CheckATheme, &tst_JornadaAcesso::SaveAndLeave}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_GUILESS_MAIN(tst_JornadaAcesso)
#include "tst_jornada_acesso.moc"
