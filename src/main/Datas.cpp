#include "main/Datas.h"

#include "runtime/Date.h"

QString Funcoes::Prepara_Data(const QString& Data)
{
    const auto dia = Date::FromText(Data);
    return dia ? Date::ToText(*dia) : QString();
}

QString Funcoes::Inverte_Data(const QString& Data)
{
    const auto dia = Date::FromText(Data);
    return dia ? Date::ToStored(*dia) : QString();
}
