#include "format_legacy/LegacyReading_p.h"

#include "format_legacy/LegacyFormat_p.h"
#include "format_legacy/LegacyTracking_p.h"
#include "loading/CTemplateBuilder.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/PlainNumbers_p.h"
#include "rawdata/TemplateLimits_p.h"
#include "rawdata/TextPool_p.h"
#include "xml/XmlDocument_p.h"

#include <memory>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace Tobrix::Templates {

namespace {

/// Converts a value of the document to the type of its target, and stores it in a record.
template <typename Record>
class ValueStore
{
public:
    ValueStore(const QStringRef &text, Record &record, TextPool &repeatedTexts, QString &keptText,
               QVariant *result)
        : m_text(text)
        , m_record(record)
        , m_repeatedTexts(repeatedTexts)
        , m_keptText(keptText)
        , m_result(result)
    {
    }

    void operator()(std::monostate) const {}

    void operator()(KeptByReader) const
    {
        m_keptText = m_repeatedTexts.shared(m_text);
        report(m_keptText);
    }

    template <typename Target>
    void operator()(RepeatedText<Target> repeated) const
    {
        store(repeated.target, m_repeatedTexts.shared(m_text));
    }

    template <typename Value, typename Owner>
    void operator()(Value Owner::*field) const
    {
        store(field, converted<Value>());
    }

    template <typename Value, typename Owner>
    void operator()(void (Owner::*setter)(Value)) const
    {
        store(setter, converted<std::decay_t<Value>>());
    }

private:
    template <typename Value>
    Value converted() const
    {
        if constexpr (std::is_same_v<Value, QString>) {
            // QStringRef::toString() may share the buffer, which the next text overwrites.
            return m_text.isNull() ? QString() : QString(m_text.data(), m_text.size());
        } else if constexpr (std::is_same_v<Value, bool>) {
            return CTemplateDataConverter::stringToBool(m_text);
        } else if constexpr (std::is_same_v<Value, double>) {
            return toDecimalDouble(m_text);
        } else {
            return static_cast<Value>(toDecimalInt(m_text));
        }
    }

    template <typename Value, typename Owner>
    void store(Value Owner::*field, const Value &value) const
    {
        m_record.*field = value;
        report(value);
    }

    template <typename Value, typename Owner>
    void store(void (Owner::*setter)(Value), const std::decay_t<Value> &value) const
    {
        (m_record.*setter)(value);
        report(value);
    }

    template <typename Value>
    void report(const Value &value) const
    {
        if (!m_result) {
            return;
        }
        if constexpr (std::is_enum_v<Value>) {
            *m_result = static_cast<int>(value);
        } else {
            *m_result = value;
        }
    }

    const QStringRef m_text;
    Record &m_record;
    TextPool &m_repeatedTexts;
    QString &m_keptText;
    QVariant *m_result; // null without an observer
};

/// The meanings of a document's names in one section, indexed by the numbers of the names: a document has few
/// names, each many times.
template <typename MeaningOf>
auto meaningsOfNames(const XmlDocument &document, MeaningOf meaningOf)
{
    std::vector<decltype(meaningOf(QStringRef()))> meanings;
    meanings.reserve(document.names().size());
    for (const auto &name : document.names()) {
        meanings.push_back(meaningOf(QStringRef(&name)));
    }
    return meanings;
}

const LegendAttribute *legendAttributeOf(const QStringRef &name)
{
    for (const auto &attribute : legendAttributes) {
        if (name == attribute.row.attribute) {
            return &attribute;
        }
    }
    return nullptr;
}

class LegacyReader
{
public:
    LegacyReader(const XmlDocument &document, CTemplateRawData &rawData, ReadingObserver *observer)
        : m_document(document)
        , m_rawData(rawData)
        , m_tracking(observer ? std::make_unique<LegacyTracking>(document, *observer) : nullptr)
    {
    }

    ReadingResult read();

private:
    bool readSections();
    bool readSection(int section, Tokens::TemplateToken token);
    bool readHeader(int section);
    bool readView(int section);
    bool readColumn(int section);
    bool readListItem(int section);
    bool readLegends(int section);
    CTemplateLegendDataItem legendClassAt(int element);

    template <typename Token, typename OnStart, typename OnText>
    bool walkSection(int section, Tokens::TemplateToken kind, const std::vector<Token> &tokens,
                     OnStart onStart, OnText onText);
    bool isRead(TextRule rule, int element, int text) const;
    template <typename Fields, typename Token, typename Record>
    bool readFields(int section, Tokens::TemplateToken kind, const Fields &fields,
                    const std::vector<Token> &tokens, Record &record);
    template <typename Row, typename Record>
    void store(const Row &row, const QStringRef &value, Record &record);

    bool stop(ReadingResult::Kind kind, int node);
    bool stopAtFault();
    bool stopOverLimit(int limit, QLatin1String what, int node);

    const XmlDocument &m_document;
    CTemplateRawData &m_rawData;
    const std::unique_ptr<LegacyTracking> m_tracking; // null without an observer
    ReadingResult m_result;
    TextPool m_repeatedTexts;
    QString m_buffer;
    QString m_listName; // of the list item in progress

    const std::vector<Tokens::TemplateToken> m_templateTokens =
        meaningsOfNames(m_document, Tokens::stringToTemplateToken);
    const std::vector<Tokens::TemplateInfoToken> m_headerTokens =
        meaningsOfNames(m_document, Tokens::stringToTemplateInfoToken);
    const std::vector<Tokens::ProgramViewToken> m_viewTokens =
        meaningsOfNames(m_document, Tokens::stringToProgramViewToken);
    const std::vector<Tokens::ColumnToken> m_columnTokens =
        meaningsOfNames(m_document, Tokens::stringToColumnToken);
    const std::vector<Tokens::ListItemToken> m_listItemTokens =
        meaningsOfNames(m_document, Tokens::stringToListItemToken);
    const std::vector<Tokens::LegendToken> m_legendTokens =
        meaningsOfNames(m_document, Tokens::stringToLegendToken);
    const std::vector<const LegendAttribute *> m_legendAttributes =
        meaningsOfNames(m_document, legendAttributeOf);
};

ReadingResult LegacyReader::read()
{
    if (readSections() && m_document.fault()) {
        stopAtFault();
    }
    if (m_tracking) {
        m_tracking->fileLegends(m_rawData);
    }
    return std::move(m_result);
}

bool LegacyReader::readSections()
{
    for (int i = 0; i < m_document.size();) {
        if (!m_document.isElement(i)) {
            if (m_tracking) {
                m_tracking->passOver(i);
            }
            ++i;
            continue;
        }
        const auto token = m_templateTokens[m_document.node(i).name];
        const bool isContainer = token == Tokens::TXSYS || token == Tokens::TobrixTemplate;
        if (m_tracking) {
            m_tracking->startTopLevel(i, token);
        }
        if (!isContainer && token != Tokens::UnknownTemplateElement && !readSection(i, token)) {
            return false;
        }
        i = isContainer ? i + 1 : m_document.end(i);
    }
    return true;
}

bool LegacyReader::readSection(int section, Tokens::TemplateToken token)
{
    switch (token) {
    case Tokens::SYSTPL:
        return readHeader(section);
    case Tokens::PROGVIEW:
        return readView(section);
    case Tokens::SYSCOL:
        return readColumn(section);
    case Tokens::SYSLIST:
        return readListItem(section);
    case Tokens::LegendOfClassification:
        return readLegends(section);
    default:
        return true;
    }
}

/// Walks over one section.
/// @param tokens of the section, by the numbers of names; 0 for unknown names
/// @param onStart is called with the token and the node of every element, the section's own included
/// @param onText is called with the token and the node of an element, and the node of its text, where a text
///        counts; never with token 0
/// @return false when the document ends within the section
template <typename Token, typename OnStart, typename OnText>
bool LegacyReader::walkSection(int section, Tokens::TemplateToken kind, const std::vector<Token> &tokens,
                               OnStart onStart, OnText onText)
{
    const TextRule rule = legacySection(kind).textRule;
    const int end = m_document.end(section);
    int element = section; // the last started element
    Token token{};
    for (int i = section; i < end; ++i) {
        if (m_document.isElement(i)) {
            element = i;
            token = tokens[m_document.node(i).name];
            onStart(token, i);
        } else if (token != Token{} && m_document.isText(i) && isRead(rule, element, i)) {
            onText(token, element, i);
            token = rule == TextRule::FirstAfterStartTag ? Token{} : token;
        } else if (m_tracking) {
            m_tracking->passOver(i);
        }
    }
    return m_document.isClosed(section) || stopAtFault();
}

bool LegacyReader::isRead(TextRule rule, int element, int text) const
{
    switch (rule) {
    case TextRule::FirstAfterStartTag:
        return true;
    case TextRule::DirectlyAfterStartTag:
        return text == element + 1 && text < m_document.end(element);
    case TextRule::EveryWithinElement:
        break;
    }
    return text < m_document.end(element);
}

template <typename Row, typename Record>
void LegacyReader::store(const Row &row, const QStringRef &value, Record &record)
{
    QVariant *result = m_tracking ? &m_tracking->result() : nullptr;
    std::visit(ValueStore<Record>(value, record, m_repeatedTexts, m_listName, result), row.target);
}

/// Reads a section whose elements are fields of one record.
template <typename Fields, typename Token, typename Record>
bool LegacyReader::readFields(int section, Tokens::TemplateToken kind, const Fields &fields,
                              const std::vector<Token> &tokens, Record &record)
{
    const auto onStart = [&](Token token, int element) {
        if (m_tracking) {
            m_tracking->startInSection(element, token == Token{} ? nullptr : &fields[token - 1].row);
        }
    };
    const auto onText = [&](Token token, int element, int text) {
        const auto &field = fields[token - 1];
        if (field.row.kind != ValueKind::Ignored) {
            store(field, m_document.text(text, m_buffer), record);
        }
        if (m_tracking) {
            m_tracking->takeText(field.row, fieldOf(token), element, text);
        }
    };
    return walkSection(section, kind, tokens, onStart, onText);
}

bool LegacyReader::readHeader(int section)
{
    CTemplateBaseData &header = m_rawData;
    return readFields(section, Tokens::SYSTPL, headerFields, m_headerTokens, header);
}

bool LegacyReader::readView(int section)
{
    auto view = std::make_unique<CProgramView>();
    if (!readFields(section, Tokens::PROGVIEW, programViewFields, m_viewTokens, *view)) {
        return false;
    }
    CProgramView *&filed = m_rawData.programViews[view->uniqueId()];
    // Of several views with one id the last one wins.
    delete filed;
    filed = view.release();
    if (m_tracking) {
        m_tracking->fileView(*filed, section);
    }
    return m_rawData.programViews.size() <= Limits::views ||
           stopOverLimit(Limits::views, QLatin1String("views"), section);
}

bool LegacyReader::readListItem(int section)
{
    auto item = std::make_unique<CListItem>();
    m_listName = QString();
    if (!readFields(section, Tokens::SYSLIST, listItemFields, m_listItemTokens, *item)) {
        return false;
    }
    // An item without a list could never be shown: such a file is damaged.
    if (m_listName.isEmpty()) {
        return stop(ReadingResult::ItemWithoutList, section);
    }
    if (m_rawData.listItems.size() >= Limits::listItems) {
        return stopOverLimit(Limits::listItems, QLatin1String("list items"), section);
    }
    const auto filed = m_rawData.listItems.insertMulti(m_listName, item.release());
    if (m_tracking) {
        m_tracking->fileListItem(**filed, m_listName, section);
    }
    return true;
}

bool LegacyReader::readColumn(int section)
{
    CColumnData data;
    if (!readFields(section, Tokens::SYSCOL, columnFields, m_columnTokens, data)) {
        return false;
    }
    data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
    if (data.columnType == CTemplateColumn::Unknown) {
        if (m_tracking) {
            m_tracking->dropColumn(section);
        }
        return true;
    }
    if (m_rawData.columns.size() >= Limits::columns) {
        return stopOverLimit(Limits::columns, QLatin1String("columns"), section);
    }
    CTemplateColumn *column = CTemplateBuilder::buildColumn(data);
    if (!column) {
        return stop(ReadingResult::ColumnNotBuilt, section);
    }
    m_rawData.columns.insertMulti(data.viewRef, column);
    if (m_tracking) {
        m_tracking->fileColumn(*column, data, section);
    }
    return true;
}

bool LegacyReader::readLegends(int section)
{
    QList<CTemplateLegendDataItem> *legend = &m_rawData.legendA;
    const auto classCount = [this] { return m_rawData.legendA.size() + m_rawData.legendB.size(); };
    int oneTooMany = -1;
    const auto onStart = [&](Tokens::LegendToken token, int element) {
        if (m_tracking) {
            m_tracking->startInLegends(element, token);
        }
        if (beginsLegend(token)) {
            legend = token == Tokens::Section ? &m_rawData.legendA : &m_rawData.legendB;
            legend->clear();
        } else if (token == Tokens::LegendClass) {
            legend->append(legendClassAt(element));
            oneTooMany = classCount() == Limits::legendClasses + 1 ? element : oneTooMany;
        }
    };
    const auto onText = [&](Tokens::LegendToken token, int element, int text) {
        const auto &field = legendFields[token - 1];
        if (field.row.kind == ValueKind::Text && !legend->isEmpty()) {
            store(field, m_document.text(text, m_buffer), legend->last());
        }
        if (m_tracking) {
            m_tracking->takeCaption(field.row, token, element, text);
        }
    };
    return walkSection(section, Tokens::LegendOfClassification, m_legendTokens, onStart, onText) &&
           (classCount() <= Limits::legendClasses ||
            stopOverLimit(Limits::legendClasses, QLatin1String("legend classes"), oneTooMany));
}

CTemplateLegendDataItem LegacyReader::legendClassAt(int element)
{
    CTemplateLegendDataItem legendClass;
    for (const auto &attribute : m_document.attributes(element)) {
        const LegendAttribute *known = m_legendAttributes[attribute.name];
        if (known) {
            store(*known, m_document.value(attribute, m_buffer), legendClass);
        }
        if (m_tracking) {
            m_tracking->takeAttribute(known ? &known->row : nullptr, element, attribute);
        }
    }
    return legendClass;
}

bool LegacyReader::stop(ReadingResult::Kind kind, int node)
{
    m_result = {kind, node, QString()};
    if (m_tracking && kind == ReadingResult::ItemWithoutList) {
        m_tracking->dropListItem(node);
    }
    return false;
}

bool LegacyReader::stopAtFault()
{
    const XmlFault &fault = m_document.fault();
    m_result = fault.kind == XmlFault::OverLimit
                   ? ReadingResult{ReadingResult::OverLimit, -1, fault.explanation}
                   : ReadingResult{ReadingResult::Broken, -1, QString()};
    return false;
}

bool LegacyReader::stopOverLimit(int limit, QLatin1String what, int node)
{
    m_result = {ReadingResult::OverLimit, node, QStringLiteral("more than %1 %2").arg(limit).arg(what)};
    return false;
}

} // namespace

ReadingResult readLegacyDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                 ReadingObserver *observer)
{
    return LegacyReader(document, rawData, observer).read();
}

} // namespace Tobrix::Templates
