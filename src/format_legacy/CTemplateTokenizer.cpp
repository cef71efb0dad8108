#include "format_legacy/CTemplateTokenizer.h"

#include "format_legacy/LegacyVocabulary_p.h"

#include <QString>

#include <array>

using namespace Tobrix::Templates;

namespace {

template <typename Token, std::size_t Size>
std::array<QString, Size> namesOf(const LegacyElement<Token> (&elements)[Size])
{
    std::array<QString, Size> names;
    for (std::size_t i = 0; i < Size; ++i) {
        names[i] = elements[i].name;
    }
    return names;
}

// The tokenizer's keys are views of these texts, so these must be there before it and stay behind it: they
// stand above it in this file, and in no other.
const auto templateNames = namesOf(templateElements);
const auto templateInfoNames = namesOf(templateInfoElements);
const auto programViewNames = namesOf(programViewElements);
const auto columnNames = namesOf(columnElements);
const auto listItemNames = namesOf(listItemElements);
const auto legendNames = namesOf(legendElements);

template <typename Token, std::size_t Size>
std::unique_ptr<const QHash<QStringRef, Token>> makeTable(const LegacyElement<Token> (&elements)[Size],
                                                          const std::array<QString, Size> &names)
{
    auto table = std::make_unique<QHash<QStringRef, Token>>();
    table->reserve(static_cast<int>(Size));
    for (std::size_t i = 0; i < Size; ++i) {
        table->insert(QStringRef(&names[i]), elements[i].token);
    }
    return table;
}

} // namespace

const CTemplateTokenizer CTemplateTokenizer::m_tokenizer;

CTemplateTokenizer::CTemplateTokenizer()
    : m_templateTokens(makeTable(templateElements, templateNames))
    , m_templateInfoTokens(makeTable(templateInfoElements, templateInfoNames))
    , m_programViewTokens(makeTable(programViewElements, programViewNames))
    , m_columnTokens(makeTable(columnElements, columnNames))
    , m_listItemTokens(makeTable(listItemElements, listItemNames))
    , m_legendTokens(makeTable(legendElements, legendNames))
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
