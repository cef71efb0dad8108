#include "format_legacy/CTemplateTokenizer.h"

#include "format_legacy/LegacyFormat_p.h"

#include <QString>

#include <array>

using namespace Tobrix::Templates;

namespace {

template <typename Row, std::size_t Size>
std::array<QString, Size> namesOf(const Row (&rows)[Size])
{
    std::array<QString, Size> names;
    for (std::size_t i = 0; i < Size; ++i) {
        names[i] = rows[i].row.element;
    }
    return names;
}

// The tokenizer's keys are views of these texts, so these must be constructed before it and destroyed after
// it: they precede it in this file.
const auto templateNames = namesOf(legacySections);
const auto templateInfoNames = namesOf(headerFields);
const auto programViewNames = namesOf(programViewFields);
const auto columnNames = namesOf(columnFields);
const auto listItemNames = namesOf(listItemFields);
const auto legendNames = namesOf(legendFields);

template <typename Row, std::size_t Size>
auto makeTable(const Row (&rows)[Size], const std::array<QString, Size> &names)
{
    using Token = decltype(Row::token);
    auto table = std::make_unique<QHash<QStringRef, Token>>();
    table->reserve(static_cast<int>(Size));
    for (std::size_t i = 0; i < Size; ++i) {
        table->insert(QStringRef(&names[i]), rows[i].token);
    }
    return table;
}

} // namespace

const CTemplateTokenizer CTemplateTokenizer::m_tokenizer;

CTemplateTokenizer::CTemplateTokenizer()
    : m_templateTokens(makeTable(legacySections, templateNames))
    , m_templateInfoTokens(makeTable(headerFields, templateInfoNames))
    , m_programViewTokens(makeTable(programViewFields, programViewNames))
    , m_columnTokens(makeTable(columnFields, columnNames))
    , m_listItemTokens(makeTable(listItemFields, listItemNames))
    , m_legendTokens(makeTable(legendFields, legendNames))
{
}

CTemplateTokenizer::~CTemplateTokenizer() = default;

CTemplateTokenizer::TemplateToken CTemplateTokenizer::stringToTemplateToken(const QStringRef &name)
{
    return m_tokenizer.m_templateTokens->value(name, UnknownTemplateElement);
}

CTemplateTokenizer::TemplateInfoToken CTemplateTokenizer::stringToTemplateInfoToken(const QStringRef &name)
{
    return m_tokenizer.m_templateInfoTokens->value(name, UnknownTemplateInfoElement);
}

CTemplateTokenizer::ProgramViewToken CTemplateTokenizer::stringToProgramViewToken(const QStringRef &name)
{
    return m_tokenizer.m_programViewTokens->value(name, UnknownProgramViewElement);
}

CTemplateTokenizer::ColumnToken CTemplateTokenizer::stringToColumnToken(const QStringRef &name)
{
    return m_tokenizer.m_columnTokens->value(name, UnknownColumnElement);
}

CTemplateTokenizer::ListItemToken CTemplateTokenizer::stringToListItemToken(const QStringRef &name)
{
    return m_tokenizer.m_listItemTokens->value(name, UnknownListItemElement);
}

CTemplateTokenizer::LegendToken CTemplateTokenizer::stringToLegendToken(const QStringRef &name)
{
    return m_tokenizer.m_legendTokens->value(name, UnknownLegendElement);
}
