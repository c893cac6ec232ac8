#include "tools/FileAssociation.h"

#include <QDir>
#include <QSettings>

namespace {

// The default value of a key is called so.
const QString Ending = u".mld/Default"_qs;
const QString Offers = u".mld/OpenWithProgids/Melodario.mld"_qs;
const QString Class = u"Melodario.mld"_qs;
const QString Icon = u"Melodario.mld/DefaultIcon/Default"_qs;
const QString Command = u"Melodario.mld/shell/open/command/Default"_qs;
const QString Before = u"Melodario.mld/Anterior"_qs;
const QString Program = u"Melodario.mld/Programa"_qs;

bool IsStored(QSettings& classes)
{
    classes.sync();
    return classes.status() == QSettings::NoError;
}

} // namespace

bool FileAssociation::Register(QSettings& classes, const QString& program)
{
    const QString path = QDir::toNativeSeparators(program);
    const QString before = classes.value(Ending).toString();
    if (before != Class && !before.isEmpty())
        classes.setValue(Before, before);
    classes.setValue(Class + u"/Default", u"Músicas do Melodario"_qs);
    classes.setValue(Icon, QString(u'"' + path + u"\",0"));
    classes.setValue(Command, QString(u'"' + path + u"\" \"%1\""));
    classes.setValue(Program, path);
    classes.setValue(Offers, QString());
    classes.setValue(Ending, Class);
    return IsStored(classes);
}

bool FileAssociation::Unregister(QSettings& classes)
{
    const QString before = classes.value(Before).toString();
    if (IsUsual(classes)) {
        if (before.isEmpty())
            classes.remove(Ending);
        else
            classes.setValue(Ending, before);
    }
    classes.remove(Offers);
    classes.remove(Class);
    classes.beginGroup(u".mld"_qs);
    const bool empty = classes.allKeys().isEmpty();
    classes.endGroup();
    if (empty)
        classes.remove(u".mld"_qs);
    return IsStored(classes);
}

QString FileAssociation::RegisteredProgram(const QSettings& classes)
{
    return classes.value(Program).toString();
}

bool FileAssociation::IsUsual(const QSettings& classes)
{
    return classes.value(Ending).toString() == Class;
}
