#include "tools/FileAssociation.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Who opens exchange files. The entries stand in a file here; on Windows they are the user's.
class tst_file_association : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void registeringNamesTheProgram();
    void removingLeavesNothing();
    void registeringTwiceIsAsOnce();
    void whoWasThereBeforeComesBack();
    void whoCameLaterStays();
    void otherEntriesOfTheEndingStay();
    void removingWithoutRegistrationChangesNothing();
    void entriesThatCannotBeWrittenFail();

private:
    QString Value(const QString& key) const { return m_classes->value(key).toString(); }
    QStringList Keys() const
    {
        QStringList keys = m_classes->allKeys();
        keys.sort();
        return keys;
    }

    const QString Program = u"/pasta de música/Melodario.exe"_qs;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_classes;
};

void tst_file_association::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_classes =
        std::make_unique<QSettings>(m_folder->filePath(u"classes.ini"_qs), QSettings::IniFormat);
}

void tst_file_association::registeringNamesTheProgram()
{
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    QCOMPARE(Value(u".mld/Default"_qs), u"Melodario.mld"_qs);
    QCOMPARE(Value(u"Melodario.mld/Default"_qs), u"Músicas do Melodario"_qs);
    const QString native = FileAssociation::RegisteredProgram(*m_classes);
    QCOMPARE(Value(u"Melodario.mld/shell/open/command/Default"_qs),
             QString(u'"' + native + u"\" \"%1\""));
    QCOMPARE(Value(u"Melodario.mld/DefaultIcon/Default"_qs), QString(u'"' + native + u"\",0"));
    QVERIFY(m_classes->contains(u".mld/OpenWithProgids/Melodario.mld"_qs));
    QVERIFY(FileAssociation::IsUsual(*m_classes));
}

void tst_file_association::removingLeavesNothing()
{
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(FileAssociation::RegisteredProgram(*m_classes), QString());
}

void tst_file_association::registeringTwiceIsAsOnce()
{
    m_classes->setValue(u".mld/Default"_qs, u"Outro"_qs);
    QVERIFY(FileAssociation::Register(*m_classes, u"/velha/Melodario.exe"_qs));
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    QVERIFY(Value(u"Melodario.mld/shell/open/command/Default"_qs).contains(u"pasta de música"));
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Keys(), QStringList(u".mld/Default"_qs));
    QCOMPARE(Value(u".mld/Default"_qs), u"Outro"_qs);
}

void tst_file_association::whoWasThereBeforeComesBack()
{
    m_classes->setValue(u".mld/Default"_qs, u"Outro"_qs);
    m_classes->setValue(u"Outro/shell/open/command/Default"_qs, u"outro.exe %1"_qs);
    const QStringList before = Keys();
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    QVERIFY(FileAssociation::IsUsual(*m_classes));
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Value(u".mld/Default"_qs), u"Outro"_qs);
    QCOMPARE(Keys(), before);
}

void tst_file_association::whoCameLaterStays()
{
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    m_classes->setValue(u".mld/Default"_qs, u"Outro"_qs);
    QVERIFY(!FileAssociation::IsUsual(*m_classes));
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Keys(), QStringList(u".mld/Default"_qs));
    QCOMPARE(Value(u".mld/Default"_qs), u"Outro"_qs);
}

void tst_file_association::otherEntriesOfTheEndingStay()
{
    m_classes->setValue(u".mld/OpenWithProgids/Outro"_qs, QString());
    m_classes->setValue(u".mp3/Default"_qs, u"Som"_qs);
    const QStringList before = Keys();
    QVERIFY(FileAssociation::Register(*m_classes, Program));
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Keys(), before);
}

void tst_file_association::removingWithoutRegistrationChangesNothing()
{
    m_classes->setValue(u".mld/Default"_qs, u"Outro"_qs);
    QCOMPARE(FileAssociation::RegisteredProgram(*m_classes), QString());
    QVERIFY(FileAssociation::Unregister(*m_classes));
    QCOMPARE(Keys(), QStringList(u".mld/Default"_qs));
}

void tst_file_association::entriesThatCannotBeWrittenFail()
{
    QSettings nowhere(m_folder->filePath(u"classes.ini/none/classes.ini"_qs), QSettings::IniFormat);
    m_classes->setValue(u".mld/Default"_qs, u"Outro"_qs);
    m_classes->sync();
    QVERIFY(!FileAssociation::Register(nowhere, Program));
}

QTEST_APPLESS_MAIN(tst_file_association)
#include "tst_file_association.moc"
