#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

/// Files and config.ini. All texts are read and written in the ANSI code page (Windows-1252), with
/// the exceptions that Le_Ini and Grava_Ini tell of.
namespace Funcoes {

/// @return the folder of the running executable, without a trailing separator.
QString Pasta_Programa();

/// @return the path of config.ini in the program's folder.
QString Caminho_Configuracao();

/// @return true when a file (no folder) exists at the path.
bool Existe_Arquivo(const QString& caminho);

/// Creates an empty file. @param sobrescreve  replaces an existing one when true
/// @throws RuntimeError FileFailure when it cannot, or when it exists and sobrescreve is false
void Cria_Arquivo(const QString& caminho, bool sobrescreve);

/// Replaces the content of the file at caminho, creating it first when it is missing; whole or not
/// at all: the old content survives a failed write.
/// @throws RuntimeError FileFailure
void Grava_Arquivo(const QString& texto, const QString& caminho);

/// Replaces the content of a file as Grava_Arquivo does, with a content that comes in pieces and is
/// never in memory as a whole.
class Gravacao_Arquivo
{
public:
    explicit Gravacao_Arquivo(const QString& caminho);
    /// Unless it was concluded, the file stays what it was.
    ~Gravacao_Arquivo();
    Gravacao_Arquivo(const Gravacao_Arquivo&) = delete;
    Gravacao_Arquivo& operator=(const Gravacao_Arquivo&) = delete;

    /// The first piece opens the file. @param pedaco  bytes of it. @throws RuntimeError FileFailure
    void Acrescenta(const QByteArray& pedaco);

    /// Puts the file in its place. @throws RuntimeError FileFailure
    void Conclui();

private:
    void Confere(bool gravou) const;

    QSaveFile m_arquivo;
};

/// Reads one key of config.ini in the program's folder, as Le_Ini does. Without such a file no
/// events run either.
/// @return its value; "" without file or key
/// @throws RuntimeError FileFailure when there is a file, or a folder, that cannot be read: whoever
/// took that for a missing key would write over it
QString Le_Configuracao(const QString& secao, const QString& chave);

/// Lets pending events run once, then reads one key of an INI file.
/// @return at most 1023 characters; "" when file, section or key is missing. A value whose bytes
/// are valid UTF-8 is read as UTF-8, any other as 1252.
QString Le_Ini(const QString& secao, const QString& chave, const QString& arquivo);

/// Writes one key of an INI file and keeps every other line. The value is written in 1252 where
/// Le_Ini reads the same text back, else in UTF-8, so that no path is damaged.
/// @throws RuntimeError FileFailure
void Grava_Ini(const QString& secao, const QString& chave, const QString& arquivo,
               const QString& valor);

} // namespace Funcoes
