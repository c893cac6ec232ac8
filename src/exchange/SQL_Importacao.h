#pragma once

#include <QString>

/// The statements of the import. Texts come prepared (Prepara_Texto).

/// A song as its fields stand in statements.
struct Musica_Preparada
{
    QString titulo;
    QString referencia;
    QString letra1;
    QString letra2;
    QString tom;
    QString variacao;
    int categoria = 0; ///< 16 bits
};

QString SQL_Musica_Igual(const Musica_Preparada& musica);
QString SQL_Insere_Musica(const Musica_Preparada& musica);
QString SQL_Tema_Igual(const QString& descricao);

/// @param ordem  TEMA.ORDEM
QString SQL_Insere_Tema(const QString& descricao, int ordem);

/// @param id     MUSICA.ID in decimal
/// @param temas  TEMA.ID each, with commas between them
QString SQL_Liga_Temas(const QString& id, const QString& temas);
