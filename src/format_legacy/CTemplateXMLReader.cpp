#include "format_legacy/CTemplateXMLReader.h"

#include "format_legacy/CTemplateTokenizer.h"
#include "format_legacy/LegacyFields_p.h"
#include "format_legacy/LegacySection_p.h"
#include "loading/CTemplateBuilder.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/GuardedFile_p.h"
#include "rawdata/CTemplateRawData.h"

namespace Tobrix::Templates {

namespace {

template <typename Token>
void ignoreStart(Token)
{
}

CTemplateLegendDataItem legendItemOf(const QXmlStreamAttributes &attributes)
{
    CTemplateLegendDataItem item;
    for (const auto &attribute : attributes) {
        const auto name = attribute.qualifiedName();
        if (name == QLatin1String("id")) {
            item.id = ownText(attribute.value());
        } else if (name == QLatin1String("color")) {
            item.color = ownText(attribute.value());
        } else if (name == QLatin1String("numberFrom")) {
            item.numberFrom = converted<double>(attribute.value());
        } else if (name == QLatin1String("numberTo")) {
            item.numberTo = converted<double>(attribute.value());
        }
    }
    return item;
}

} // namespace

CTemplateXMLReader::CTemplateXMLReader()
    : m_file(std::make_unique<GuardedFile>(SpareWhiteSpace::BehindTexts))
    , m_xml(std::make_unique<LegacyXmlStream>())
{
}

CTemplateXMLReader::~CTemplateXMLReader() = default;

bool CTemplateXMLReader::readFile(const QString &fileName, CTemplateRawData &rawData)
{
    m_rawData = &rawData;
    m_rawData->clear();
    if (!m_file->openTemplate(fileName)) {
        return false;
    }
    m_xml->start(m_file.get());
    while (!isEnd(m_xml->tokenType())) {
        if (m_xml->readNext() == QXmlStreamReader::StartElement && !readSectionAtStartTag()) {
            return false;
        }
    }
    // What comes next needs the memory.
    m_xml->repeatedTexts().clear();
    return m_xml->error() == QXmlStreamReader::NoError && m_file->excess().isEmpty();
}

bool CTemplateXMLReader::readSectionAtStartTag()
{
    switch (CTemplateTokenizer::stringToTemplateToken(m_xml->name())) {
    case CTemplateTokenizer::TXSYS:
    case CTemplateTokenizer::TobrixTemplate:
        return true;
    case CTemplateTokenizer::SYSTPL:
        return readTemplate();
    case CTemplateTokenizer::PROGVIEW:
        return readProgramView();
    case CTemplateTokenizer::SYSCOL:
        return readColumn();
    case CTemplateTokenizer::SYSLIST:
        return readListItem();
    case CTemplateTokenizer::LegendOfClassification:
        return readLegendItems();
    case CTemplateTokenizer::UnknownTemplateElement:
        break;
    }
    m_xml->skipCurrentElement();
    return true;
}

bool CTemplateXMLReader::readTemplate()
{
    using Token = CTemplateTokenizer::TemplateInfoToken;
    CTemplateBaseData &header = *m_rawData;
    return walkSection(*m_xml, CTemplateTokenizer::stringToTemplateInfoToken, TextRule::FirstAfterStartTag,
                       ignoreStart<Token>,
                       [&](Token token) { storeText(headerFields, token, *m_xml, header); });
}

bool CTemplateXMLReader::readProgramView()
{
    using Token = CTemplateTokenizer::ProgramViewToken;
    auto view = std::make_unique<CProgramView>();
    const bool isComplete = walkSection(
        *m_xml, CTemplateTokenizer::stringToProgramViewToken, TextRule::FirstAfterStartTag,
        ignoreStart<Token>, [&](Token token) { storeText(programViewFields, token, *m_xml, *view); });
    if (!isComplete) {
        return false;
    }
    CProgramView *&filed = m_rawData->programViews[view->uniqueId()];
    // Of several views with one id the last counts.
    delete filed;
    filed = view.release();
    return m_rawData->programViews.size() <= Limits::views;
}

bool CTemplateXMLReader::readListItem()
{
    using Token = CTemplateTokenizer::ListItemToken;
    auto item = std::make_unique<CListItem>();
    QString listName;
    const bool isComplete = walkSection(*m_xml, CTemplateTokenizer::stringToListItemToken,
                                        TextRule::FirstAfterStartTag, ignoreStart<Token>, [&](Token token) {
                                            if (token == CTemplateTokenizer::LIST_Name) {
                                                listName = m_xml->repeatedTexts().shared(m_xml->text());
                                            }
                                            storeText(listItemFields, token, *m_xml, *item);
                                        });
    // An item of no list can never be offered to anybody: such a file is damaged.
    if (!isComplete || listName.isEmpty() || m_rawData->listItems.size() >= Limits::listItems) {
        return false;
    }
    m_rawData->listItems.insertMulti(listName, item.release());
    return true;
}

bool CTemplateXMLReader::readColumn()
{
    using Token = CTemplateTokenizer::ColumnToken;
    CColumnData data;
    const bool isComplete =
        walkSection(*m_xml, CTemplateTokenizer::stringToColumnToken, TextRule::DirectlyAfterStartTag,
                    ignoreStart<Token>, [&](Token token) {
                        storeText(columnFields, token, *m_xml, data);
                        if (token == CTemplateTokenizer::COL_DataType) {
                            data.columnType = CTemplateDataConverter::stringToColumnType(m_xml->text());
                        }
                    });
    if (!isComplete) {
        return false;
    }
    if (data.columnType == CTemplateColumn::Unknown) {
        return true;
    }
    CTemplateColumn *column =
        m_rawData->columns.size() < Limits::columns ? CTemplateBuilder::buildColumn(data) : nullptr;
    if (!column) {
        return false;
    }
    m_rawData->columns.insertMulti(data.viewRef, column);
    return true;
}

bool CTemplateXMLReader::readLegendItems() const
{
    using Token = CTemplateTokenizer::LegendToken;
    QList<CTemplateLegendDataItem> *legend = &m_rawData->legendA;
    const auto beginGroup = [&legend](QList<CTemplateLegendDataItem> &group) {
        legend = &group;
        legend->clear();
    };
    const auto onStart = [&](Token token) {
        if (token == CTemplateTokenizer::Section) {
            beginGroup(m_rawData->legendA);
        } else if (token == CTemplateTokenizer::Lateral) {
            beginGroup(m_rawData->legendB);
        } else if (token == CTemplateTokenizer::LegendClass) {
            legend->append(legendItemOf(m_xml->attributes()));
        }
    };
    const auto onText = [&](Token token) {
        if (legend->isEmpty()) {
            return;
        }
        if (token == CTemplateTokenizer::LegendA) {
            legend->last().textA = ownText(m_xml->text());
        } else if (token == CTemplateTokenizer::LegendB) {
            legend->last().textB = ownText(m_xml->text());
        }
    };
    const bool isComplete = walkSection(*m_xml, CTemplateTokenizer::stringToLegendToken,
                                        TextRule::EveryWithinElement, onStart, onText);
    return isComplete && m_rawData->legendA.size() + m_rawData->legendB.size() <= Limits::legendClasses;
}

} // namespace Tobrix::Templates
