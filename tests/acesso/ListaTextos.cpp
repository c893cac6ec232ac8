#include "acesso/ListaTextos.h"

#include <QRegularExpression>
#include <QSet>

namespace {

const QString OutroTeste = u"vistos por "_qs;
const QString NaoProvocados = u"não provocados"_qs;

/// @return what the text of a line matches
QRegularExpression Padrao(const QString& texto)
{
    QString padrao = QRegularExpression::escape(texto);
    padrao.replace(QRegularExpression::escape(u"{n}"_qs), u"[0-9]+"_qs);
    padrao.replace(QRegularExpression::escape(u"{v}"_qs), u"[0-9]+\\.[0-9]+\\.[0-9]+"_qs);
    padrao.replace(QRegularExpression::escape(u"{*}"_qs), u".*"_qs);
    return QRegularExpression(QRegularExpression::anchoredPattern(padrao),
                              QRegularExpression::DotMatchesEverythingOption);
}

bool EPadrao(const QString& texto)
{
    return texto.contains(u"{n}") || texto.contains(u"{v}") || texto.contains(u"{*}");
}

QString Escrito(QString texto)
{
    return u'"' + texto.replace(u'\r', u"\\r"_qs).replace(u'\n', u"\\n"_qs) + u'"';
}

} // namespace

ListaTextos::ListaTextos(const QString& lista)
{
    int numero = 0;
    for (const QStringView linha : QStringView(lista).split(u'\n'))
        Le(linha, ++numero);
}

void ListaTextos::Le(QStringView linha, int numero)
{
    if (linha.isEmpty() || linha.startsWith(u'#'))
        return;
    if (linha.startsWith(u'[') && linha.endsWith(u']')) {
        m_titulo = linha.mid(1, linha.size() - 2).toString();
        return;
    }
    const qsizetype abre = linha.indexOf(u" \"");
    if (abre <= 0 || !linha.endsWith(u'"') || linha.size() < abre + 3) {
        m_erros.append(u"line %1 cannot be read"_qs.arg(numero));
        return;
    }
    QString texto = linha.mid(abre + 2, linha.size() - abre - 3).toString();
    texto.replace(u"\\r"_qs, u"\r"_qs).replace(u"\\n"_qs, u"\n"_qs);
    m_linhas.append({m_titulo, linha.left(abre).toString(), texto, numero});
}

QStringList ListaTextos::Confere(const QMap<QPair<QString, QString>, QString>& vistos) const
{
    QStringList erros = m_erros;
    QSet<int> mostradas;
    for (auto visto = vistos.cbegin(); visto != vistos.cend(); ++visto) {
        const auto& [onde, texto] = visto.key();
        // The words of a line come before the patterns of others.
        const Linha* achada = nullptr;
        for (const Linha& linha : m_linhas) {
            if (linha.onde != onde || (achada && EPadrao(linha.texto)))
                continue;
            if (linha.texto == texto ||
                (EPadrao(linha.texto) && Padrao(linha.texto).match(texto).hasMatch()))
                achada = &linha;
            if (linha.texto == texto)
                break;
        }
        if (achada)
            mostradas.insert(achada->numero);
        else
            erros.append(u"not in the list: "_qs + onde + u' ' + Escrito(texto) + u" ("_qs +
                         visto.value() + u')');
    }
    for (const Linha& linha : m_linhas) {
        if (!mostradas.contains(linha.numero) && !linha.titulo.startsWith(OutroTeste) &&
            linha.titulo != NaoProvocados)
            erros.append(u"never shown: line %1, "_qs.arg(linha.numero) + linha.onde + u' ' +
                         Escrito(linha.texto));
    }
    return erros;
}

QList<ListaTextos::Linha> ListaTextos::DeOutrosTestes() const
{
    QList<Linha> linhas;
    for (Linha linha : m_linhas) {
        if (!linha.titulo.startsWith(OutroTeste))
            continue;
        linha.titulo = linha.titulo.mid(OutroTeste.size());
        linhas.append(linha);
    }
    return linhas;
}
