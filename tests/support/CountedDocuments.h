#pragma once

#include "model/CProgramView.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/TemplateLimits_p.h"

#include <QByteArray>
#include <QSet>

#include <vector>

/// A kind of object with a limit in templates.
struct CountedKind
{
    const char *name; ///< as in messages
    int most;
    QByteArray begin; ///< of a document
    QByteArray one;   ///< an object, with "#" for its number
    QByteArray end;   ///< of a document
    int (*countIn)(const Tobrix::Templates::CTemplateRawData &rawData);
};

/// A document with so many objects of one kind, all on its first line except the last, which is on the
/// second.
inline QByteArray documentWith(const CountedKind &kind, int count)
{
    QByteArray document = kind.begin;
    for (int i = 1; i <= count; ++i) {
        document += (i < count ? QByteArray() : QByteArray("\n")) +
                    QByteArray(kind.one).replace('#', QByteArray::number(i));
    }
    return document + kind.end;
}

namespace CountedIn {

using Record = Tobrix::Templates::CTemplateRawData;

inline int views(const Record &record)
{
    return record.programViews.size();
}

inline int listItems(const Record &record)
{
    return record.listItems.size();
}

inline int legendClasses(const Record &record)
{
    return record.legendA.size() + record.legendB.size();
}

inline int legacyColumns(const Record &record)
{
    return record.columns.size();
}

inline int currentColumns(const Record &record)
{
    int count = 0;
    for (const auto *view : record.programViews) {
        count += view->columnCount();
    }
    return count;
}

} // namespace CountedIn

inline std::vector<CountedKind> countedLegacyKinds()
{
    using namespace Tobrix::Templates;
    // Every document has a key and a view, so that the template is not empty.
    const QByteArray begin = "<TXSYS><SYSTPL><TPL_Key>k</TPL_Key></SYSTPL>";
    const QByteArray end = "</TXSYS>";
    return {
        {"columns", Limits::columns, begin + "<PROGVIEW/>",
         "<SYSCOL><COL_DataType>TXT</COL_DataType></SYSCOL>", end, CountedIn::legacyColumns},
        {"list items", Limits::listItems, begin, "<SYSLIST><LIST_Name>n</LIST_Name></SYSLIST>", end,
         CountedIn::listItems},
        {"legend classes", Limits::legendClasses, begin + "<LegendOfClassification>", "<class/>",
         "</LegendOfClassification>" + end, CountedIn::legendClasses},
        {"views", Limits::views, begin, "<PROGVIEW><PV_PK>#</PV_PK></PROGVIEW>", end, CountedIn::views},
    };
}

inline std::vector<CountedKind> countedCurrentKinds()
{
    using namespace Tobrix::Templates;
    const QByteArray begin = "<Template><Name>k</Name>";
    const QByteArray end = "</Template>";
    return {
        {"columns", Limits::columns, begin + "<View>", "<Column/>", "</View>" + end,
         CountedIn::currentColumns},
        {"list items", Limits::listItems, begin + "<ValueList Name='n'>", "<ValueListItem/>",
         "</ValueList>" + end, CountedIn::listItems},
        {"legend classes", Limits::legendClasses,
         begin + "<ClassificationColorScopes><ClassificationColorScope Name='Other'><ClassificationColor/>"
                 "</ClassificationColorScope>"
                 "<ClassificationColorScope Name='ClassColorDefault' Scope='Section'>",
         "<ClassificationColor/>", "</ClassificationColorScope></ClassificationColorScopes>" + end,
         CountedIn::legendClasses},
        {"views", Limits::views, begin, "<View Id='#'/>", end, CountedIn::views},
    };
}
