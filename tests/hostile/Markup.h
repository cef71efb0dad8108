#pragma once

#include <QByteArray>

enum class Format { Legacy, Current };

/// A text, repeated.
inline QByteArray repeated(const QByteArray &text, int times)
{
    return text.repeated(times);
}

/// Nested elements of one name, around a text.
inline QByteArray nested(const QByteArray &name, int depth, const QByteArray &inner = QByteArray())
{
    return repeated('<' + name + '>', depth) + inner + repeated("</" + name + '>', depth);
}

/// A text with a number, repeated for the numbers from 0.
template <typename ToText>
QByteArray numbered(int count, ToText toText)
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += toText(QByteArray::number(i));
    }
    return text;
}

/// A document of a template with a key, and further content in its root.
inline QByteArray document(Format format, const QByteArray &body, const QByteArray &prolog = QByteArray())
{
    return format == Format::Legacy
               ? prolog + "<TXSYS><SYSTPL><TPL_Key>k</TPL_Key></SYSTPL>" + body + "</TXSYS>"
               : prolog + "<Template><Name>k</Name>" + body + "</Template>";
}

/// A document type with declarations.
inline QByteArray documentType(const QByteArray &declarations)
{
    return "<!DOCTYPE a [" + declarations + "]>";
}

inline QByteArray entity(const QByteArray &name, const QByteArray &text)
{
    return "<!ENTITY " + name + " \"" + text + "\">";
}
