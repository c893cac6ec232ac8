#include "TelasImportacao.h"

#include "exchange/Importa_Musicas.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

namespace {

constexpr int Songs = 300;
constexpr int SongMs = 5; // long enough for the progress to be shown

class Form final : public frmPrincipal
{
public:
    explicit Form(const TestCatalogue& catalogue)
        : m_catalogue(catalogue)
    {
    }
    using frmPrincipal::Importa_Musicas;

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(m_catalogue.ConnectionString());
        Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
    }

private:
    const TestCatalogue& m_catalogue;
};

QString Song(const QString& title, const QString& key = QStringLiteral("<tom>C</tom>"))
{
    return u"<musica><titulo>" % title %
           u"</titulo><referencia>Ana</referencia><letra1>a</letra1><letra2/>" % key %
           u"<variacao/><categoria>1</categoria><temas><descricao>Louvor</descricao></temas>"
           u"</musica>";
}

QString FileOf(const QTemporaryDir& folder, const QString& songs)
{
    QFile file(folder.filePath(QStringLiteral("a.mld")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no exchange file");
    const QString text = u"<musicas>" % songs % u"</musicas>";
    file.write(text.toUtf8());
    return file.fileName();
}

/// Imports, and takes a picture of each window that comes up on the way.
void Import(const std::function<void(const QString&)>& save, Form& form, const QString& path,
            QStringList names)
{
    QWidget* last = nullptr;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || window == last || names.isEmpty())
            return;
        last = window;
        save(names.takeFirst());
        if (auto* box = qobject_cast<QMessageBox*>(window))
            box->button(box->standardButtons().testFlag(QMessageBox::Yes) ? QMessageBox::Yes
                                                                          : QMessageBox::Ok)
                ->click();
        last = nullptr;
        if (!qobject_cast<QMessageBox*>(window))
            last = window;
    });
    watch.start(0);
    form.Importa_Musicas(path);
}

} // namespace

void ShowImport(const std::function<void(const QString& name)>& save)
{
    const TestCatalogue catalogue;
    const QTemporaryDir folder;
    Form form(catalogue);
    form.Form_Load(QString());
    form.show();
    Import(save, form, folder.filePath(QStringLiteral("x.mld")),
           {QStringLiteral("importar-nao-encontrado")});
    Import(save, form, QCoreApplication::applicationFilePath(),
           {QStringLiteral("importar-nao-reconhecido")});
    Import(save, form, FileOf(folder, QStringLiteral("Ana & Beto")),
           {QStringLiteral("importar-invalido")});
    Import(save, form, FileOf(folder, Song(QStringLiteral("Canção d'água"))),
           {QStringLiteral("importar-fim")});
    QString faulty;
    for (int i = 1; i <= 20; ++i)
        faulty += Song(QStringLiteral("Música sem tom número %1").arg(i), QString());
    Import(save, form, FileOf(folder, faulty),
           {QStringLiteral("importar-defeitos"), QStringLiteral("importar-nenhuma")});
    Import(save, form, FileOf(folder, Song(QStringLiteral("Canção d'água"))),
           {QStringLiteral("importar-pergunta"), QStringLiteral("importar-outra-vez")});
    Funcoes::Conexao.SetStatementHook([](const QString& sql) {
        if (sql.startsWith(u"INSERT INTO MUSICA "))
            QThread::msleep(SongMs);
    });
    QString many;
    for (int i = 0; i < Songs; ++i)
        many += Song(QString::number(i));
    Import(save, form, FileOf(folder, many),
           {QStringLiteral("importar-andamento"), QStringLiteral("importar-muitas")});
    Funcoes::Conexao.SetStatementHook({});
    form.close();
}
