#pragma once

#include "xml/DocumentTypeGuard_p.h"

#include <QByteArray>
#include <QString>

#include <array>

namespace Tobrix::Templates {

/// Scans the markup of an XML document before a parser gets it, and reports when a limit is exceeded. It does
/// not check well-formedness: the parser stops at any fault.
///
/// Works on bytes in which markup is ASCII.
class XmlGuard
{
public:
    /// Scans the next bytes.
    /// @return how many of them are within the limits: all, or those before the place where one is exceeded
    qint64 follow(const char *bytes, qint64 size);

    /// The exceeded limit, in words; empty when none is.
    QString excess() const { return m_excess; }

    /// Whether the bytes are complete: all markup ends, and all elements are closed and have no end tag too
    /// many.
    bool isWhole() const { return m_state == State::Text && m_depth == 0 && !m_isClosedTooOften; }

    /// The nesting depth reached, and the total number of elements and namespace declarations.
    int deepest() const { return m_deepest; }
    qint64 elements() const { return m_elements; }
    qint64 namespaceDeclarations() const { return m_namespaceDeclarations; }

    /// Whether the bytes end within a document type, which is checked only at its end.
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
    const char *followText(const char *at, const char *end);
    const char *followMarkup(const char *at, const char *end);
    const char *followDeclaration(const char *at);
    const char *followToTerminator(char repeated, int count, const char *at, const char *end);
    const char *followStartTag(const char *at, const char *end);
    const char *skipElementName(const char *at, const char *end);
    const char *followAttributeValue(const char *at, const char *end);
    const char *followEndTag(const char *at, const char *end);
    const char *followDocumentType(const char *at, const char *end);

    /// Searches for a character, and checks the references to entities before it.
    const char *findAfterReferences(char c, const char *at, const char *end);
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

    /// Records an exceeded limit unless one is recorded already. Nothing after it is scanned.
    void require(const QString &excess);
    void require(bool isWithinLimit, const char *excess, int limit = 0);

    State m_state = State::Text;
    QString m_excess;

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
    // Only the start of the name is compared.
    std::array<char, 5> m_attributeName = {};
    std::size_t m_attributeNameSize = 0;
    bool m_isAttributeNameComplete = false;

    bool m_hasDocumentType = false;
    QByteArray m_documentTypeText;
    int m_documentTypeBrackets = 0;
    char m_documentTypeQuote = 0;
    int m_documentTypeQuoted = 0; // where the quoted text begins
    DocumentTypeGuard m_documentType;

    bool m_isInReference = false;
    QByteArray m_reference;
    DocumentTypeGuard::Cost m_referenceCost;
};

} // namespace Tobrix::Templates
