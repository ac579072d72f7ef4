// Small change between Qt and the office's own types. Included by the sources of this folder only.
#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <QString>
#include <rtl/ustring.hxx>
#include <vector>

inline rtl::OUString versUno(const QString &texte)
{
    return rtl::OUString(reinterpret_cast<const sal_Unicode *>(texte.utf16()),
                         static_cast<sal_Int32>(texte.size()));
}

inline QString versQt(const rtl::OUString &texte)
{
    return QString(reinterpret_cast<const QChar *>(texte.getStr()), texte.getLength());
}

inline css::beans::PropertyValue propriete(const char *nom, const css::uno::Any &valeur)
{
    return css::beans::PropertyValue(rtl::OUString::createFromAscii(nom), -1, valeur,
                                     css::beans::PropertyState_DIRECT_VALUE);
}

inline css::uno::Sequence<css::beans::PropertyValue>
description(const std::vector<css::beans::PropertyValue> &liste)
{
    return {liste.data(), static_cast<sal_Int32>(liste.size())};
}
