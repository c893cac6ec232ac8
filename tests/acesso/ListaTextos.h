#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// The list of all texts that the program may show (textos.txt). A line holds a control and the
/// text in quotation marks; \n and \r in it are line ends. {n} stands for a number, {v} for the
/// program's version, {*} for anything that comes from the catalogue or from the user. Lines stand
/// under headings:
///   [combinados]  texts that are settled, letter for letter
///   [nossos]      texts that nobody settled but us
///   [dados]       where only the catalogue's or the user's texts are shown
///   [não provocados]  texts of failures that no test brings about in front of a user
///   [vistos por FILE]  texts that another test, this file under tests, holds in its own words
class ListaTextos
{
public:
    struct Linha
    {
        QString titulo; ///< the heading
        QString onde;   ///< control
        QString texto;
        int numero = 0; ///< of the line in the list, from 1
    };

    /// @param lista  the content of the list
    explicit ListaTextos(const QString& lista);

    /// @param vistos  control and text, with the screen that showed it
    /// @return what is wrong: lines that cannot be read, texts that are not in the list, lines that
    ///         nothing showed
    QStringList Confere(const QMap<QPair<QString, QString>, QString>& vistos) const;

    /// @return the lines that other tests answer for
    QList<Linha> DeOutrosTestes() const;

private:
    void Le(QStringView linha, int numero);

    QString m_titulo;
    QList<Linha> m_linhas;
    QStringList m_erros;
};
