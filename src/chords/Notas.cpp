#include "chords/Notas.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

#include <algorithm>

namespace {

constexpr int Oitava = 12;

/// @return the first of the entries 1 to 12 that spells nome, or 0.
std::int16_t IndexIn(const Funcoes::Escala& notas, QStringView nome)
{
    const auto hit = std::find(notas.begin() + 1, notas.end(), nome);
    return hit == notas.end() ? std::int16_t{0} : static_cast<std::int16_t>(hit - notas.begin());
}

const QString& NoteAt(const Funcoes::Escala& notas, int indice)
{
    if (indice < 0 || indice > Oitava)
        RuntimeError::ThrowSubscriptOutOfRange();
    return notas[static_cast<std::size_t>(indice)];
}

} // namespace

namespace Funcoes {

Escala Notas;
Escala Notas_Mais;
QString Tabela_Nota;

std::int16_t Procura_Nota(QStringView nome, QString& tabela)
{
    if (const std::int16_t indice = IndexIn(Notas, nome)) {
        tabela = QStringLiteral("1");
        return indice;
    }
    if (const std::int16_t indice = IndexIn(Notas_Mais, nome)) {
        tabela = QStringLiteral("2");
        return indice;
    }
    tabela = QString();
    return 0;
}

int Corrige_Oitava(int indice) noexcept
{
    if (indice > Oitava)
        return indice - Oitava;
    return indice < 1 ? indice + Oitava : indice;
}

QString Transpoe_Nota(std::int16_t indice, std::int16_t deslocamento)
{
    const int n = Corrige_Oitava(Number::AddInteger(indice, deslocamento));
    if (Tabela_Nota == u"1")
        return NoteAt(Notas, n);
    if (Tabela_Nota == u"2")
        return NoteAt(Notas_Mais, n);
    return {};
}

} // namespace Funcoes
