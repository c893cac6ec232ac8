// Keys in the setlist: Shift moves songs, and marks a change whatever is pressed with it.

#include "ListaTeste.h"

class tst_lista_teclas : public ListaTeste
{
    Q_OBJECT

private slots:
    void shiftAndArrowsMoveAndSetTheFlag();
    void shiftWithAnyKeySetsTheFlagAndIsSwallowed();
    void theShiftKeyAloneIsNoKeyPressedWithIt();
    void shiftAndArrowsAtTheEndsMoveNothing_data();
    void shiftAndArrowsAtTheEndsMoveNothing();
    void shiftAndUpInAnEmptySetlist();
    void plainKeysChooseTheSongThatMoves();
    void shiftAndTabLeaveTheListUnchanged();
    void otherShiftCombinationsDoNothing_data();
    void otherShiftCombinationsDoNothing();
};

void tst_lista_teclas::shiftAndArrowsMoveAndSetTheFlag()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs), Musica(u"Canto"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(2);
    Tecla("lstMusicasSelecionadas", Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Bem"_qs}));
    QCOMPARE(Atual(), 1);
    QCOMPARE(Modificada(), u"1"_qs);
    Tecla("lstMusicasSelecionadas", Qt::Key_Up, Qt::ShiftModifier | Qt::KeypadModifier);
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Amor"_qs, u"Bem"_qs}));
    Tecla("lstMusicasSelecionadas", Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Bem"_qs}));
}

void tst_lista_teclas::shiftWithAnyKeySetsTheFlagAndIsSwallowed()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    const QList<Qt::Key> teclas{Qt::Key_End, Qt::Key_B, Qt::Key_Delete, Qt::Key_Space};
    for (const Qt::Key tecla : teclas) {
        Responde(0, "cmdEditar");
        Seleciona(0);
        QCOMPARE(Modificada(), u"0"_qs);
        Tecla("lstMusicasSelecionadas", tecla, Qt::ShiftModifier);
        QCOMPARE(Modificada(), u"1"_qs);
        QCOMPARE(Atual(), 0);
        QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs}));
    }
}

void tst_lista_teclas::theShiftKeyAloneIsNoKeyPressedWithIt()
{
    Carrega();
    Tecla("lstMusicasSelecionadas", Qt::Key_Shift);
    Tecla("lstMusicasSelecionadas", Qt::Key_Shift, Qt::ShiftModifier);
    QCOMPARE(Modificada(), u"0"_qs);
}

void tst_lista_teclas::shiftAndArrowsAtTheEndsMoveNothing_data()
{
    QTest::addColumn<int>("song");
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("up at the first") << 0 << Qt::Key_Up;
    QTest::newRow("down at the last") << 2 << Qt::Key_Down;
}

void tst_lista_teclas::shiftAndArrowsAtTheEndsMoveNothing()
{
    QFETCH(int, song);
    QFETCH(Qt::Key, key);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs), Musica(u"Canto"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(song);
    QCOMPARE(Modificada(), u"0"_qs);
    Tecla("lstMusicasSelecionadas", key, Qt::ShiftModifier);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs, u"Canto"_qs}));
    QCOMPARE(Atual(), song); // the list has not seen the key
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_teclas::shiftAndUpInAnEmptySetlist()
{
    Carrega();
    Tecla("lstMusicasSelecionadas", Qt::Key_Up, Qt::ShiftModifier);
    Tecla("lstMusicasSelecionadas", Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(Titulos(), QStringList());
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_teclas::plainKeysChooseTheSongThatMoves()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs), Musica(u"Canto"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(0);
    Tecla("lstMusicasSelecionadas", Qt::Key_Down);
    QCOMPARE(Atual(), 1);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs, u"Canto"_qs}));
    QCOMPARE(Modificada(), u"0"_qs);
    Clica("cmdDown");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Bem"_qs}));
    Tecla("lstMusicasSelecionadas", Qt::Key_Home);
    Clica("cmdDown");
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Amor"_qs, u"Bem"_qs}));
}

void tst_lista_teclas::shiftAndTabLeaveTheListUnchanged()
{
    Musica(u"Amor"_qs);
    Carrega();
    Acha<QWidget>("lstMusicasSelecionadas")->setFocus();
    Tecla("lstMusicasSelecionadas", Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(Acha<QWidget>("cmdRemover")->hasFocus());
    QCOMPARE(Modificada(), u"0"_qs);
}

void tst_lista_teclas::otherShiftCombinationsDoNothing_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Shift and Ctrl") << int(Qt::ShiftModifier | Qt::ControlModifier);
    QTest::newRow("Shift and Alt") << int(Qt::ShiftModifier | Qt::AltModifier);
    QTest::newRow("Ctrl") << int(Qt::ControlModifier);
}

void tst_lista_teclas::otherShiftCombinationsDoNothing()
{
    QFETCH(int, modifiers);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(1);
    for (const Qt::Key tecla : {Qt::Key_Up, Qt::Key_Delete})
        Tecla("lstMusicasSelecionadas", tecla, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs}));
    QCOMPARE(Modificada(), u"0"_qs);
}

QTEST_MAIN(tst_lista_teclas)
#include "tst_lista_teclas.moc"
