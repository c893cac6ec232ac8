#include "main/Texto_Sobre.h"

#include "runtime/Version.h"

#include <QStringList>

QString Texto_Sobre()
{
    const QStringList linhas{
        u"Melodario Versão " % Version::ToText(),
        QStringLiteral("Cifras e letras para quem conduz o canto."),
        QStringLiteral("Criado pela equipe do Melodario."),
        QString(),
        QStringLiteral("As músicas que acompanham o programa são de domínio público."),
        QStringLiteral("Construído com Qt, SQLite e ICU."),
    };
    return linhas.join(QStringLiteral("\r\n"));
}
