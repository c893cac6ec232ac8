#include "ExportarTeste.h"

/// The line that tells which songs an exchange file cannot hold as they are.
class tst_exportar_aviso : public ExportarTeste
{
    Q_OBJECT

private slots:
    void sound_songs_are_worth_no_word_data();
    void sound_songs_are_worth_no_word();
    void songs_that_lose_letters_are_named();
    void songs_that_may_make_the_file_unreadable_are_named_data();
    void songs_that_may_make_the_file_unreadable_are_named();
    void a_theme_concerns_all_songs_that_have_it();
    void many_songs_are_counted();
    void all_titles_are_told_to_the_keyboard_and_to_a_screen_reader_data();
    void all_titles_are_told_to_the_keyboard_and_to_a_screen_reader();
    void what_it_says_is_plain_text();
    void what_it_says_happens();

private:
    /// @return the line's text for all songs of the list; "" when it is not shown
    QString Aviso(QString* dica = nullptr)
    {
        QString texto;
        m_lista->selectAll();
        if (!No_Formulario([&](QDialog& form) {
                const auto* aviso = No<QLabel>(form, "lblAviso");
                if (aviso->isVisible())
                    texto = aviso->text();
                if (dica)
                    *dica = aviso->toolTip();
            }))
            qFatal("no export form");
        return texto;
    }
};

void tst_exportar_aviso::sound_songs_are_worth_no_word_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("accents") << u"Canção à noite é só “amor” – 5 €"_qs;
    QTest::newRow("accents in two parts") << u"Canc\u0327a\u0303o"_qs;
    QTest::newRow("signs that are dropped") << u"Rock <ao> vivo"_qs;
    QTest::newRow("lines") << u"C\r\n\r\n\tLuz\n"_qs;
    QTest::newRow("apostrophe") << u"d'água"_qs;
}

void tst_exportar_aviso::sound_songs_are_worth_no_word()
{
    QFETCH(QString, text);
    TestSong outros;
    outros.reference = outros.text = outros.text2 = text;
    Musica(text, {}, outros);
    Carrega_Exportar();
    QCOMPARE(Aviso(), QString());
}

void tst_exportar_aviso::songs_that_lose_letters_are_named()
{
    TestSong segunda;
    segunda.text2 = u"Luz ♪"_qs;
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs, {}, segunda);
    Musica(u"Canto 日"_qs);
    Carrega_Exportar();
    QCOMPARE(Aviso(), u"O arquivo não comporta todas as letras e sinais destas músicas; em lugar "
                      "deles terá “?”: “Bem”, “Canto 日”."_qs);
}

void tst_exportar_aviso::songs_that_may_make_the_file_unreadable_are_named_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("text");
    for (const char* coluna : {"REFERENCIA", "MUSICA", "MUSICA2", "TOM", "VARIACAO"}) {
        QTest::addRow("ampersand in %s", coluna) << QString::fromLatin1(coluna) << u"R&B"_qs;
        QTest::addRow("escape in %s", coluna) << QString::fromLatin1(coluna) << u"a\u001bb"_qs;
    }
    for (const char* coluna : {"TOM", "VARIACAO"}) {
        QTest::addRow("less in %s", coluna) << QString::fromLatin1(coluna) << u"<"_qs;
        QTest::addRow("greater in %s", coluna) << QString::fromLatin1(coluna) << u">"_qs;
    }
}

void tst_exportar_aviso::songs_that_may_make_the_file_unreadable_are_named()
{
    QFETCH(QString, column);
    QFETCH(QString, text);
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    m_catalogo->Run(u"UPDATE MUSICA SET %1 = '%2' WHERE ID = 2"_qs.arg(column, text));
    Carrega_Exportar();
    QCOMPARE(Aviso(), u"Um arquivo com estas músicas pode ser recusado ao ser importado, por causa "
                      "de “&”, “<”, “>” ou de caracteres de controle: “Bem”."_qs);
}

void tst_exportar_aviso::a_theme_concerns_all_songs_that_have_it()
{
    const qint64 tema = m_catalogo->AddTheme(u"R&B ♭"_qs);
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs, {tema});
    Musica(u"Canto"_qs, {tema});
    Carrega_Exportar();
    const QStringList linhas = Aviso().split(u'\n');
    QCOMPARE(linhas.size(), 2);
    for (const QString& linha : linhas)
        QVERIFY2(linha.endsWith(u": “Bem”, “Canto”."), qPrintable(linha));
}

void tst_exportar_aviso::many_songs_are_counted()
{
    for (int i = 1; i <= 70; ++i)
        Musica(u"Canto ♪ %1"_qs.arg(i, 2, 10, QChar(u'0')));
    Carrega_Exportar();
    QString dica;
    const QString aviso = Aviso(&dica);
    QVERIFY2(aviso.endsWith(u"“Canto ♪ 05”, “Canto ♪ 06” e mais 64."), qPrintable(aviso));
    QVERIFY2(dica.endsWith(u"“Canto ♪ 30” e mais 40."), qPrintable(dica));
}

void tst_exportar_aviso::all_titles_are_told_to_the_keyboard_and_to_a_screen_reader_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("click") << 0;
}

void tst_exportar_aviso::all_titles_are_told_to_the_keyboard_and_to_a_screen_reader()
{
    QFETCH(int, key);
    for (int i = 1; i <= 20; ++i)
        Musica(u"Canto ♪ %1"_qs.arg(i, 2, 10, QChar(u'0')));
    Carrega_Exportar();
    m_lista->selectAll();
    QVERIFY(No_Formulario([&](QDialog& form) {
        QVERIFY(QTest::qWaitForWindowActive(&form));
        auto* aviso = No<QLabel>(form, "lblAviso");
        QVERIFY(aviso->accessibleDescription().endsWith(u"“Canto ♪ 20”."));
        if (key == 0) {
            QTest::mouseClick(aviso, Qt::LeftButton);
        } else {
            QTRY_VERIFY(No<QWidget>(form, "cmdExportar")->hasFocus());
            for (int i = 0; i < 3; ++i) // over the other button and the list
                QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            QVERIFY(aviso->hasFocus());
            QTest::keyClick(aviso, static_cast<Qt::Key>(key));
        }
        QVERIFY(form.isVisible());
        QCOMPARE(m_caixas->boxes.size(), 1);
        QCOMPARE(m_caixas->boxes[0].icon, Icone::Exclamacao);
        QCOMPARE(m_caixas->boxes[0].text, aviso->accessibleDescription());
    }));
    QCOMPARE(Arquivos(), QStringList());
}

void tst_exportar_aviso::what_it_says_is_plain_text()
{
    Musica(u"<b>R&amp;B</b>"_qs);
    Musica(QString(200, u'♪'));
    Carrega_Exportar();
    m_lista->selectAll();
    QVERIFY(No_Formulario([](QDialog& form) {
        const auto* aviso = No<QLabel>(form, "lblAviso");
        QCOMPARE(aviso->textFormat(), Qt::PlainText);
        QVERIFY(aviso->text().contains(u"“<b>R&amp;B</b>”"));
        QVERIFY(aviso->text().contains(QString(QString(60, u'♪') + u"…”")));
    }));
}

void tst_exportar_aviso::what_it_says_happens()
{
    Musica(u"R&B ♪"_qs);
    Carrega_Exportar();
    m_lista->selectAll();
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    Exporta(true);
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("R&B ?")));
}

QTEST_MAIN(tst_exportar_aviso)
#include "tst_exportar_aviso.moc"
