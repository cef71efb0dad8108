#pragma once

#include "rawdata/ReadingObserver_p.h"

#include <QString>

#include <vector>

namespace Tobrix::Templates {

struct CTemplateRawData;

/// Columns of one view that the file does not have.
struct ColumnsWithoutView
{
    int element = -1; ///< of the first one
    QString name;     ///< of the first one, in a sentence
    QString view;     ///< the id of the view
    int others = 0;   ///< how many others there are
};

/// Records what a reader finds in a document, for reports on failures.
class ReadContent : public ReadingObserver
{
public:
    /// Whether any template data was found.
    bool hasAnything() const { return m_hasAnything; }

    /// The first column in the file whose view is missing, and the number of others of that view.
    /// @param rawData the record that was read; it still owns its columns
    ColumnsWithoutView firstColumnsWithoutView(const CTemplateRawData &rawData) const;

    void begin(const XmlDocument &) override {}
    void take(const Value &) override { m_hasAnything = true; }
    void fileView(const CProgramView &, int) override { m_hasAnything = true; }
    void fileColumn(const CTemplateColumn *column, const CColumnData &data, int element, int view) override;
    void fileListItem(const CListItem &, const QString &, int, int) override { m_hasAnything = true; }
    void fileLegendClass(const CTemplateLegendDataItem &, bool, int) override { m_hasAnything = true; }
    void fileDefault(const QString &, const QString &, const QString &, int) override
    {
        m_hasAnything = true;
    }
    void fileList(const QString &, int, int) override { m_hasAnything = true; }
    void passOver(int, const XmlDocument::Attribute *, Reason, int) override {}

private:
    struct Column
    {
        int element;
        const CTemplateColumn *column;
        QString view;
    };

    bool m_hasAnything = false;
    std::vector<Column> m_columns;
};

} // namespace Tobrix::Templates
