#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class ServicosImportacao;

namespace Funcoes {

/// Imports an exchange file: adds its songs to the catalogue, creates the themes that they name and
/// asks before it adds a song whose title and reference are stored already. What is no exchange
/// file is refused with a message before anything changes. Songs that lack something are told of at
/// the end, the others are imported. Songs are committed in portions, before each question and at
/// any error; once the connection is closed, because the form was, the import ends without a word.
/// Writes MUSICA, TEMA and TEMA_MUSICA. Lets events run.
/// @param caminho    double quotes in it do not count
/// @param principal  is told when all is imported; lives as long as dono
/// @param dono       of the boxes, which stand alone while it is hidden
/// @throws RuntimeError of the store; Overflow behind the 32,767th song. What was stored stays
void Importa_Musicas(QString caminho, ServicosImportacao& principal, QWidget& dono);

} // namespace Funcoes
