#include "tools/ConversionOrder.h"

#include "tools/DestinationKind.h"
#include "tools/FileArgument.h"

#include <QFileInfo>

namespace {

constexpr int MostSemitones = 12;

/// Reads one argument after the other.
class OrderReader
{
public:
    explicit OrderReader(const QStringList& arguments)
        : m_arguments(arguments)
    {
    }

    std::optional<ConversionOrder> Read(QString& wrong)
    {
        while (m_wrong.isEmpty() && m_at < m_arguments.size())
            ReadArgument(m_arguments[m_at++]);
        if (m_wrong.isEmpty())
            ReadDestination();
        if (m_wrong.isEmpty())
            CheckCombinations();
        wrong = m_wrong;
        return wrong.isEmpty() ? std::optional(m_order) : std::nullopt;
    }

private:
    void ReadArgument(const QString& argument)
    {
        if (!m_options || argument == Standard() || !argument.startsWith(u'-'))
            m_order.sources.append(FileArgument(argument));
        else if (argument == u"--")
            m_options = false;
        else if (argument == u"--simular")
            m_order.simulate = true;
        else if (argument == u"--force")
            m_order.force = true;
        else
            ReadOption(argument);
    }

    /// "--tom +2" and "--tom=+2" mean the same.
    void ReadOption(const QString& argument)
    {
        const qsizetype equals = argument.indexOf(u'=');
        const QString name = equals < 0 ? argument : argument.first(equals);
        static const QStringList names = {u"--lista"_qs, u"--tema"_qs,   u"--titulo"_qs,
                                          u"--tom"_qs,   u"--versao"_qs, u"--formato"_qs,
                                          u"--papel"_qs};
        if (!names.contains(name)) {
            m_wrong = u"opção desconhecida: "_qs + argument;
            return;
        }
        // A single dash may begin a number of semitones.
        if (equals < 0 && m_arguments.value(m_at, u"--"_qs).startsWith(u"--")) {
            m_wrong = u"falta o valor de "_qs + name;
            return;
        }
        const QString value = equals < 0 ? m_arguments[m_at++] : argument.mid(equals + 1);
        const bool mayRepeat = name == u"--tema" || name == u"--titulo";
        if (!mayRepeat && m_given.contains(name))
            m_wrong = name + u" só pode ser dito uma vez"_qs;
        else if (value.trimmed().isEmpty())
            m_wrong = u"falta o valor de "_qs + name;
        else
            SetOption(name, value);
        m_given.append(name);
    }

    void SetOption(const QString& name, const QString& value)
    {
        if (name == u"--lista")
            m_order.setlist = value;
        else if (name == u"--tema")
            m_order.themes.append(value);
        else if (name == u"--titulo")
            m_order.titles.append(value);
        else if (name == u"--formato")
            m_format = value.toLower();
        else if (name == u"--tom")
            SetSemitones(value);
        else if (name == u"--versao")
            SetVersion(value);
        else
            SetPaper(value.toLower());
    }

    void SetSemitones(const QString& value)
    {
        bool isNumber = false;
        m_order.semitones = value.toInt(&isNumber);
        if (!isNumber || qAbs(m_order.semitones) > MostSemitones)
            m_wrong = u"--tom é um número de semitons de -12 a +12, não \"%1\""_qs.arg(value);
    }

    void SetVersion(const QString& value)
    {
        m_order.version = value == u"1" ? 1 : 2;
        if (value != u"1" && value != u"2")
            m_wrong = u"--versao é 1 ou 2, não \"%1\""_qs.arg(value);
    }

    void SetPaper(const QString& value)
    {
        m_order.phone = value == u"telefone";
        if (!m_order.phone && value != u"a4")
            m_wrong = u"--papel é a4 ou telefone, não \"%1\""_qs.arg(value);
    }

    void ReadDestination()
    {
        if (m_order.sources.size() < 2) {
            m_wrong = u"faltam a origem e o destino"_qs;
            return;
        }
        m_order.destination = m_order.sources.takeLast();
        if (m_order.sources.contains(QString())) {
            m_wrong = u"o nome de uma origem está vazio"_qs;
            return;
        }
        m_order.kind = FindDestination(m_order.destination, m_format, m_wrong);
    }

    void CheckCombinations()
    {
        if (!m_order.kind->make && (m_order.sources.size() > 1 || !m_given.isEmpty()))
            m_wrong = u"um catálogo novo (.mdb) se faz de um só catálogo antigo, inteiro"_qs;
        else if (m_given.contains(u"--papel"_qs) && !m_order.kind->hasPaper)
            m_wrong = u"--papel só vale para um destino .pdf"_qs;
        else if (!m_order.setlist.isEmpty() && m_order.sources.size() > 1)
            m_wrong = u"--lista precisa de uma só origem, um catálogo"_qs;
        else if (m_order.sources.count(Standard()) > 1)
            m_wrong = u"a entrada padrão (-) só pode ser lida uma vez"_qs;
    }

    QStringList m_arguments;
    qsizetype m_at = 0;
    bool m_options = true;
    QStringList m_given;
    QString m_format;
    ConversionOrder m_order;
    QString m_wrong;
};

} // namespace

std::optional<ConversionOrder> ReadOrder(const QStringList& arguments, QString& wrong)
{
    return OrderReader(arguments).Read(wrong);
}
