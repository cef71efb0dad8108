#pragma once

#include <QByteArray>

enum class Format { Legacy, Current };

/// A text, over and over.
inline QByteArray repeated(const QByteArray &text, int times)
{
    return text.repeated(times);
}

/// Elements of one name in each other, around a text.
inline QByteArray nested(const QByteArray &name, int depth, const QByteArray &inner = QByteArray())
{
    return repeated('<' + name + '>', depth) + inner + repeated("</" + name + '>', depth);
}

/// A numbered text, once for every number from 0 on.
template <typename ToText>
QByteArray numbered(int count, ToText toText)
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += toText(QByteArray::number(i));
    }
    return text;
}

/// A document that gives a template with a key, with more inside of its root.
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
