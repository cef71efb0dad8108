#pragma once

#include "support/TemporaryTemplate.h"

#include "format_current/NewTemplateXMLReader.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "rawdata/CTemplateRawData.h"

#include <QByteArray>
#include <QStringList>

/// Reads a document with a separate reader.
inline bool readDocument(const QByteArray &document, Tobrix::Templates::CTemplateRawData &rawData)
{
    const TemporaryTemplate file(QStringLiteral("templates_new"), document);
    return Tobrix::Templates::NewTemplateXMLReader().readFile(file.path(), rawData);
}

/// The result of reading some elements below a document's root.
class ReadElements
{
public:
    explicit ReadElements(const QByteArray &elements)
    {
        if (!readDocument(currentDocument(elements), m_rawData)) {
            qFatal("The document was not read");
        }
    }

    const Tobrix::Templates::CTemplateRawData &rawData() const { return m_rawData; }

    /// The view with an id; null when there is none.
    const Tobrix::Templates::CProgramView *view(const QString &id) const
    {
        return m_rawData.programViews.value(id, nullptr);
    }

    /// The document's one view; null when it has none or several.
    const Tobrix::Templates::CProgramView *onlyView() const
    {
        return m_rawData.programViews.size() == 1 ? *m_rawData.programViews.cbegin() : nullptr;
    }

    /// The one column of the document's one view; null when there is no such column.
    const Tobrix::Templates::CTemplateColumn *onlyColumn() const
    {
        return onlyView() && onlyView()->columnCount() == 1 ? onlyView()->column(0) : nullptr;
    }

private:
    Q_DISABLE_COPY(ReadElements)

    Tobrix::Templates::CTemplateRawData m_rawData;
};

/// A view with some elements in it.
inline QByteArray viewOf(const QByteArray &elements,
                         const QByteArray &attributes = R"(Id="{view}" Name="View")")
{
    return "<View " + attributes + ">" + elements + "</View>";
}

/// A column with some elements in it.
inline QByteArray columnOf(const QByteArray &elements, const QByteArray &attributes = R"(DataType="Text")")
{
    return "<Column " + attributes + ">" + elements + "</Column>";
}

/// A text column bound to a property, at a position in its view.
inline QByteArray boundColumnElement(const QByteArray &property, int ordinal = 0)
{
    return columnOf("<BoundProperty PropertyName=\"" + property + "\"/>",
                    "DataType=\"Text\" Ordinal=\"" + QByteArray::number(ordinal) + "\"");
}

/// The bindings of a view's columns, in order; "(null)" for a null column.
inline QStringList boundColumnsOf(const Tobrix::Templates::CProgramView &view)
{
    QStringList names;
    for (int i = 0; i < view.columnCount(); ++i) {
        const auto *column = view.column(i);
        names.append(column ? column->boundColumn() : QStringLiteral("(null)"));
    }
    return names;
}
