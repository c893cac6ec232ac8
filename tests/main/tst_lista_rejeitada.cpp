// Statements that the store rejects while a setlist is saved or deleted.

#include "ListaTeste.h"

class tst_lista_rejeitada : public ListaTeste
{
    Q_OBJECT

private slots:
    void aRejectedInsertEndsTheSave();
    void aRejectedSongKeepsTheSongsBeforeIt();
    void aRejectedFirstSongKeepsTheChanges();
    void aRejectedDeletionEndsIt();
    void aRejectedUpdateEndsTheSave();
    void aRejectedDeletionOfTheSongsEndsTheSave();
    void aRejectedDeletionOfTheSongsEndsTheDeletion();
};

void tst_lista_rejeitada::aRejectedInsertEndsTheSave()
{
    Musica(u"Amor"_qs);
    m_catalogo->Run(u"ALTER TABLE LISTA ADD COLUMN X CHECK (NOME <> 'Ensaio')"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    Clica("cmdSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Listas().size(), 0);
    QCOMPARE(Lugares().size(), 0);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_rejeitada::aRejectedSongKeepsTheSongsBeforeIt()
{
    const qint64 amor = Musica(u"Amor"_qs);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {amor});
    m_catalogo->Run(u"ALTER TABLE LISTA_MUSICA ADD COLUMN X CHECK (ORDEM <> 2)"_qs);
    Carrega();
    Responde(0, "cmdEditar");
    Adiciona({0, 0});
    Digita("txtNome", u"Culto"_qs);
    Clica("cmdSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    // What ran stays done, and the panel keeps everything for another try.
    QCOMPARE(Listas()[0][1], u"Culto"_qs);
    QCOMPARE(Lugares().size(), 2);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Amor"_qs, u"Amor"_qs}));
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    Caixas();
    Clica_Item("lstMusicasSelecionadas", 2);
    Clica("cmdRemover");
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({u"Lista Alterada com Sucesso!"_qs}));
    QCOMPARE(Lugares().size(), 2);
}

void tst_lista_rejeitada::aRejectedFirstSongKeepsTheChanges()
{
    Musica(u"Amor"_qs);
    m_catalogo->Run(u"ALTER TABLE LISTA_MUSICA ADD COLUMN X CHECK (ORDEM <> 0)"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    Clica("cmdSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Listas().size(), 1);
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_rejeitada::aRejectedDeletionEndsIt()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Digita("txtNome", u"Minha"_qs);
    m_catalogo->Run(u"ALTER TABLE LISTA RENAME TO GUARDADA"_qs);
    Responde(0, "cmdExcluir");
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Critico);
    QCOMPARE(m_catalogo->Field(u"SELECT NOME FROM GUARDADA"_qs), u"Ensaio"_qs);
    QCOMPARE(Lugares().size(), 0); // what ran stays done
    QCOMPARE(Texto("txtNome"), u"Minha"_qs);
    QCOMPARE(Grade().size(), 1);
}

void tst_lista_rejeitada::aRejectedUpdateEndsTheSave()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    m_catalogo->Run(u"ALTER TABLE LISTA ADD COLUMN X CHECK (NOME <> 'Culto')"_qs);
    Carrega();
    Responde(0, "cmdEditar");
    Adiciona({0});
    Digita("txtNome", u"Culto"_qs);
    m_comandos.clear();
    Clica("cmdSalvar");
    QCOMPARE(m_comandos, QStringList({u"UPDATE LISTA SET NOME = 'Culto', DATA = CDATE('05/03/2009')"
                                      "  WHERE ID = 01"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Listas()[0][1], u"Ensaio"_qs);
    QCOMPARE(Lugares().size(), 1);
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Titulos().size(), 2);
}

void tst_lista_rejeitada::aRejectedDeletionOfTheSongsEndsTheSave()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Adiciona({0});
    Digita("txtNome", u"Culto"_qs);
    m_catalogo->Run(u"ALTER TABLE LISTA_MUSICA RENAME TO GUARDADA"_qs);
    m_comandos.clear();
    Clica("cmdSalvar");
    QCOMPARE(m_comandos, QStringList({u"UPDATE LISTA SET NOME = 'Culto', DATA = CDATE('05/03/2009')"
                                      "  WHERE ID = 01"_qs,
                                      u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 01"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(Listas()[0][1], u"Culto"_qs); // what ran stays done
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_rejeitada::aRejectedDeletionOfTheSongsEndsTheDeletion()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    m_catalogo->Run(u"ALTER TABLE LISTA_MUSICA RENAME TO GUARDADA"_qs);
    m_comandos.clear();
    Responde(0, "cmdExcluir");
    QCOMPARE(m_comandos, QStringList({u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 01"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 2); // the question and the failure
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Critico);
    QCOMPARE(Listas().size(), 1);
    QCOMPARE(Grade().size(), 1);
}

QTEST_MAIN(tst_lista_rejeitada)
#include "tst_lista_rejeitada.moc"
