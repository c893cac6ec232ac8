#pragma once

#include <QString>

#include <array>
#include <cstdint>

/// The chord engine written down step by step with QString alone, slow and plain: what the fast one
/// must agree with to the byte, and what it is measured against. It shares no code with it.
struct PlainEngine
{
    std::array<QString, 13> Notas;
    std::array<QString, 13> Notas_Mais;
    QString Tabela_Nota;

    std::int16_t Procura_Nota(const QString& nome, QString& tabela) const;

    /// @throws RuntimeError Overflow, SubscriptOutOfRange
    QString Transpoe_Nota(std::int16_t indice, std::int16_t deslocamento) const;

    /// @param linha  a line without its separator
    bool Linha_Cifra(const QString& linha);

    /// @throws RuntimeError Overflow, SubscriptOutOfRange
    QString Monta_Cifra(const QString& texto, std::int16_t deslocamento, std::int16_t ajuste_fonte,
                        bool exibe_cifras);

private:
    QString Reescreve(const QString& linha, std::int16_t deslocamento);
};
