#include "tools/check/model/LegacyFieldReading.h"

#include <utility>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Walks over the nodes of one section in the steps of a stream reader.
class SectionWalk
{
public:
    SectionWalk(const XmlElement &section, const SectionTokens &tokens, TextRule rule)
        : m_tree(section.tree()), m_section(section), m_tokens(tokens), m_rule(rule)
    {
    }

    std::vector<LegacyReading> read();

private:
    struct Open
    {
        int end;
        int reading; // -1 for an element that is unknown in the section
    };

    void start(int index);
    void take(int index);
    void endBefore(int index);
    LegacyReading &current() { return m_readings[static_cast<std::size_t>(m_current)]; }

    const XmlTree &m_tree;
    const XmlElement m_section;
    const SectionTokens &m_tokens;
    const TextRule m_rule;
    std::vector<LegacyReading> m_readings;
    std::vector<Open> m_open;
    int m_current = -1; // the reading that the next text is for
};

std::vector<LegacyReading> SectionWalk::read()
{
    constexpr std::size_t ordinarySection = 32;
    m_readings.reserve(ordinarySection);
    const int end = m_tree.node(m_section.index()).end;
    for (int i = m_section.index() + 1; i < end; ++i) {
        endBefore(i);
        switch (m_tree.node(i).kind) {
        case XmlNode::Element:
            start(i);
            break;
        case XmlNode::Text:
        case XmlNode::CData:
            take(i);
            break;
        case XmlNode::Comment:
        case XmlNode::Instruction:
        case XmlNode::Reference:
            if (m_rule == TextRule::DirectlyAfterStartTag) {
                m_current = -1;
            }
            break;
        }
    }
    return std::move(m_readings);
}

void SectionWalk::start(int index)
{
    const XmlElement element(m_tree, index);
    const int token = m_tokens.of(element);
    m_current = -1;
    if (token != 0) {
        m_current = static_cast<int>(m_readings.size());
        LegacyReading reading;
        reading.token = token;
        reading.element = element;
        m_readings.push_back(reading);
    }
    m_open.push_back({m_tree.node(index).end, m_current});
}

void SectionWalk::take(int index)
{
    if (m_current < 0) {
        const int owner = m_open.empty() ? -1 : m_open.back().reading;
        if (owner >= 0 && !m_tree.isBlank(index)) {
            LegacyReading &reading = m_readings[static_cast<std::size_t>(owner)];
            reading.ignoredText = reading.ignoredText < 0 ? index : reading.ignoredText;
        }
        return;
    }
    LegacyReading &reading = current();
    if (reading.text >= 0 && reading.ignoredText < 0 && !m_tree.isBlank(reading.text)) {
        reading.ignoredText = reading.text;
    }
    reading.text = index;
    reading.isCaptured = m_tree.node(reading.element.index()).end <= index;
    if (m_rule != TextRule::EveryWithinElement) {
        m_current = -1;
    }
}

void SectionWalk::endBefore(int index)
{
    while (!m_open.empty() && m_open.back().end <= index) {
        m_open.pop_back();
        if (m_rule != TextRule::FirstAfterStartTag) {
            m_current = -1;
        }
    }
}

} // namespace

std::vector<LegacyReading> readSection(const XmlElement &section, const SectionTokens &tokens,
                                       Tokens::TemplateToken kind)
{
    return SectionWalk(section, tokens, legacySection(kind).textRule).read();
}

} // namespace Tobrix::Tools
