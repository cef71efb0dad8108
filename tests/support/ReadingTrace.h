#pragma once

#include "rawdata/ReadingObserver_p.h"

#include <QMap>
#include <QStringList>

/// A reading as lines: one per call of the observer, with its place in the document: that of the attribute,
/// the text, or the element.
class ReadingTrace : public Tobrix::Templates::ReadingObserver
{
public:
    const QStringList &lines() const { return m_lines; }
    /// How often each row, kind of object and reason was reported, and a hash of all lines: for documents
    /// with too many lines to review.
    QStringList summary() const;

    void begin(const Tobrix::Templates::XmlDocument &document) override;
    void take(const Value &value) override;
    void fileView(const Tobrix::Templates::CProgramView &view, int element) override;
    void fileColumn(const Tobrix::Templates::CTemplateColumn *column,
                    const Tobrix::Templates::CColumnData &data, int element, int view) override;
    void fileListItem(const Tobrix::Templates::CListItem &item, const QString &listName, int element,
                      int list) override;
    void fileLegendClass(const Tobrix::Templates::CTemplateLegendDataItem &legendClass, bool isLateral,
                         int element) override;
    void fileDefault(const QString &path, const QString &view, const QString &value, int element) override;
    void fileList(const QString &name, int classType, int element) override;
    void passOver(int node, const Tobrix::Templates::XmlDocument::Attribute *attribute, Reason reason,
                  int inFavourOf) override;

private:
    QString placeOf(int node, const Tobrix::Templates::XmlDocument::Attribute *attribute = nullptr) const;
    void add(const QString &kind, const QString &place, const QString &what);

    const Tobrix::Templates::XmlDocument *m_document = nullptr;
    QStringList m_lines;
    QMap<QString, int> m_counts;
};
