#pragma once

#include "xml/DocumentTypeGuard_p.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

namespace Tobrix::Templates {

/// White space before markup, with nothing else since the markup before it, that is of no use to whoever
/// reads a document.
enum class SpareWhiteSpace {
    None,
    /// All of it: to a document it is nothing.
    BetweenMarkup,
    /// Only such behind the end of an element that has a text: within an element it may be part of the text,
    /// and an element without a text may take the white space behind its end for one.
    BehindTexts
};

/// Follows the markup of an XML document as it is handed to a parser, and says when it goes past a limit. It
/// understands as much of XML as that takes and no more: what is not well-formed is for the parser to find,
/// which stops there.
///
/// Works on bytes in which markup stands in ASCII.
class XmlGuard
{
public:
    /// Follows the next bytes.
    /// @return how many of them are within the limits: all, or those before the place where something is too
    /// much
    qint64 follow(const char *bytes, qint64 size);

    /// What is too much, in words; empty as long as nothing is.
    QString excess() const { return m_excess; }

    /// A run of the bytes followed last.
    struct Run
    {
        qint64 begin;
        qint64 end;
    };

    /// From now on, notes white space of a kind.
    void noteSpareWhiteSpace(SpareWhiteSpace kind) { m_notedWhiteSpace = kind; }
    /// The white space of that kind among the bytes followed last, but for such that began before them.
    const std::vector<Run> &spareWhiteSpace() const { return m_spareWhiteSpace; }

    /// Whether the bytes are whole: they end outside of all markup, and all elements are closed, and were
    /// open before that.
    bool isWhole() const { return m_state == State::Text && m_depth == 0 && !m_isClosedTooOften; }

    /// Elements in each other, at most, and elements and namespace declarations in all.
    int deepest() const { return m_deepest; }
    qint64 elements() const { return m_elements; }
    qint64 namespaceDeclarations() const { return m_namespaceDeclarations; }

    /// Whether the bytes end within a document type, of which nothing can be said before its end.
    bool isInDocumentType() const { return m_state == State::DocumentType; }
    bool hasDocumentType() const { return m_hasDocumentType; }

private:
    enum class State {
        Text,
        Markup,
        Declaration,
        Comment,
        CData,
        Instruction,
        StartTag,
        AttributeValue,
        EndTag,
        DocumentType
    };

    const char *followState(const char *at, const char *end);
    bool isWhiteSpaceSpare() const;
    const char *followWhiteSpace(const char *at, const char *end);
    const char *followText(const char *at, const char *end);
    const char *followMarkup(const char *at, const char *end);
    const char *followDeclaration(const char *at);
    const char *followToTerminator(char repeated, int count, const char *at, const char *end);
    const char *followStartTag(const char *at, const char *end);
    const char *skipElementName(const char *at, const char *end);
    const char *followAttributeValue(const char *at, const char *end);
    const char *followEndTag(const char *at, const char *end);
    const char *followDocumentType(const char *at, const char *end);

    /// Looks for the first of a character from a place on, and at the references to entities up to there.
    const char *findBehindReferences(char c, const char *at, const char *end);
    void followReference(char c);

    void enter(State state);
    void beginDocumentType();
    void openElement();
    void closeElement();
    void countElements(qint64 elements);
    void countNamespaceDeclarations(qint64 declarations);
    void nameAttribute(char c);
    void beginAttributeValue(char quote);
    bool isDocumentTypeAtEnd(char c);

    /// What is too much unless something else was before. Nothing can be followed behind it.
    void require(const QString &excess);
    void require(bool isWithinLimit, const char *excess, int limit = 0);

    State m_state = State::Text;
    QString m_excess;

    SpareWhiteSpace m_notedWhiteSpace = SpareWhiteSpace::None;
    // With nothing but spare white space in between. At the beginning there is none before an XML
    // declaration.
    bool m_isBehindMarkup = false;
    // Since the last start of an element.
    bool m_isBehindText = false;
    bool m_isBehindEnd = false;
    const char *m_bytes = nullptr;
    std::vector<Run> m_spareWhiteSpace;

    int m_depth = 0;
    int m_deepest = 0;
    bool m_isClosedTooOften = false;
    qint64 m_elements = 0;
    int m_terminatorMatched = 0;
    QByteArray m_declaration;

    char m_previousInTag = 0;
    char m_quote = 0;
    int m_attributes = 0;
    qint64 m_namespaceDeclarations = 0;
    // Of the name only the beginning matters.
    std::array<char, 5> m_attributeName = {};
    std::size_t m_attributeNameSize = 0;
    bool m_isAttributeNameComplete = false;

    bool m_hasDocumentType = false;
    QByteArray m_documentTypeText;
    int m_documentTypeBrackets = 0;
    char m_documentTypeQuote = 0;
    int m_documentTypeQuoted = 0; // where what is quoted begins
    DocumentTypeGuard m_documentType;

    bool m_isInReference = false;
    QByteArray m_reference;
    DocumentTypeGuard::Cost m_referenceCost;
};

} // namespace Tobrix::Templates
