#pragma once

#include <QString>

/// @param texto  a field of an exchange file
/// @return the field as it stands between the single quotes of a statement: each apostrophe is
///         doubled, each "[br]" becomes a carriage return and a line feed
QString Prepara_Texto(const QString& texto);
