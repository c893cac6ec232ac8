#include "controls/FileDialogs.h"

#include "controls/Handler.h"
#include "controls/HeldKeys.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <utility>

namespace {

/// @return the filter as Qt writes it: descriptions that name their patterns stay as they are
QStringList FiltrosQt(const QString& filtro)
{
    if (filtro.isEmpty())
        return {};
    const QStringList partes = filtro.split(u'|');
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2) {
        const QString descricao = partes.at(i).trimmed();
        const QString padroes = partes.at(i + 1).trimmed().replace(u';', u' ');
        const QString lista = u'(' % padroes % u')';
        filtros += descricao.endsWith(lista) ? descricao : QString(descricao % u' ' % lista);
    }
    return filtros;
}

class RealFileDialogs final : public FileDialogs
{
public:
    QString Choose(QWidget* parent, const Pedido_Arquivo& pedido) override
    {
        // It may be destroyed with its parent while it stands open.
        const QPointer<QFileDialog> box = new QFileDialog(parent, pedido.titulo, pedido.pasta);
        box->setObjectName(pedido.nome);
        Prepare(*box, pedido);
        new HeldKeys(*box, HeldKeys::Enter);
        const bool chosen = box->exec() == QDialog::Accepted;
        QString path;
        if (box && chosen)
            path = box->selectedFiles().value(0);
        delete box;
        return path;
    }

private:
    static void Prepare(QFileDialog& box, const Pedido_Arquivo& pedido)
    {
        switch (pedido.especie) {
        case Pedido_Arquivo::Abrir:
            box.setFileMode(QFileDialog::ExistingFile);
            break;
        case Pedido_Arquivo::Salvar:
            box.setAcceptMode(QFileDialog::AcceptSave);
            box.setFileMode(QFileDialog::AnyFile);
            box.setOption(QFileDialog::DontConfirmOverwrite);
            break;
        case Pedido_Arquivo::Pasta:
            box.setFileMode(QFileDialog::Directory);
            box.setOption(QFileDialog::ShowDirsOnly);
            return;
        }
        box.setNameFilters(FiltrosQt(pedido.filtro));
    }
};

FileDialogs* testFileDialogs = nullptr;

/// Where the last picker ended.
QString& UltimaPasta()
{
    static QString pasta;
    return pasta;
}

QString Comeco(const QString& pedida)
{
    if (!pedida.isEmpty())
        return pedida;
    if (QFileInfo(UltimaPasta()).isDir())
        return UltimaPasta();
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString ComExtensao(const QString& caminho, const QString& extensao)
{
    const QString fim = u'.' % extensao.mid(extensao.lastIndexOf(u'.') + 1);
    // A dot alone tells nothing: "Missa 7.11" has no extension.
    if (fim.size() == 1 || caminho.endsWith(fim, Qt::CaseInsensitive))
        return caminho;
    return caminho + fim;
}

} // namespace

FileDialogs& CurrentFileDialogs()
{
    static RealFileDialogs real;
    return testFileDialogs ? *testFileDialogs : real;
}

FileDialogs* SetFileDialogs(FileDialogs* dialogs)
{
    return std::exchange(testFileDialogs, dialogs);
}

QString Funcoes::Escolhe_Arquivo(QWidget* parent, const Pedido_Arquivo& pedido)
{
    Pedido_Arquivo completo = pedido;
    completo.pasta = Comeco(pedido.pasta);
    QString caminho;
    {
        const ModalScope scope;
        caminho = CurrentFileDialogs().Choose(parent, completo);
    }
    if (caminho.isEmpty())
        return QString();
    if (pedido.especie == Pedido_Arquivo::Pasta) {
        UltimaPasta() = caminho;
        return QDir::toNativeSeparators(caminho);
    }
    UltimaPasta() = QFileInfo(caminho).absolutePath();
    if (pedido.especie == Pedido_Arquivo::Salvar)
        caminho = ComExtensao(caminho, pedido.extensao);
    return QDir::toNativeSeparators(caminho);
}
