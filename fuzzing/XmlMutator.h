#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Tobrix::Fuzzing {

/// Mutates documents by tokens, so that most stay well-formed or nearly so. Random changes of bytes are
/// mostly rejected near the start.
class XmlMutator
{
public:
    /// @param dictionary path of a libFuzzer dictionary: names and values used in templates
    explicit XmlMutator(const char *dictionary);

    /// Makes some changes to a document in any encoding that templates have.
    std::string mutate(std::string_view document, std::uint32_t seed);

private:
    using Words = std::vector<std::string>;

    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : m_random() % bound; }
    const std::string &anyOf(const Words &words) { return words[below(words.size())]; }
    std::string anyText();
    std::string anyAttribute();

    void split(std::string_view document);
    std::size_t endOfElement(std::size_t start) const;
    std::size_t anyToken() { return below(m_tokens.size()); }
    std::size_t anyStartTag();

    Words take(std::size_t from, std::size_t end);
    void insert(const Words &tokens);

    void change();
    void moveTokens(bool isCopy);
    void changeTag();
    void changeAttributes(std::string &tag);
    void renameElement();
    void toggleEmptyElement();
    void changeText();
    void changeProlog();
    std::string encode(const std::string &document);

    Words m_names;
    Words m_attributes;
    Words m_values;
    Words m_tokens;
    std::minstd_rand m_random;
};

} // namespace Tobrix::Fuzzing
