#include "xml/DocumentTypeGuard_p.h"

#include "xml/XmlGuard_p.h"
#include "xml/XmlLimits_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

// Saturated sums: cannot overflow, and are well above all limits.
constexpr qint64 saturation = 1'000'000'000;

void addUpTo(qint64 &sum, qint64 more)
{
    sum = std::min(sum + more, saturation);
}

int deepestParenthesis(const QByteArray &text)
{
    int depth = 0;
    int deepest = 0;
    for (const char c : text) {
        // Unmatched ones, in a comment for example, must not offset later ones.
        depth = c == '(' ? depth + 1 : c == ')' ? std::max(0, depth - 1) : depth;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

/// The replacement text of an entity: character references expanded, characters beyond ASCII replaced.
/// @param excess receives the reason when the entity must not be used
QString replacementText(const QByteArray &literal, QString &excess)
{
    static const QRegularExpression number(QStringLiteral("&#(?:x([0-9A-Fa-f]+)|([0-9]+));"));
    const QString text = QString::fromLatin1(literal);
    QString replaced;
    int end = 0;
    auto matches = number.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const bool isHexadecimal = !match.captured(1).isEmpty();
        const uint character = match.captured(isHexadecimal ? 1 : 2).toUInt(nullptr, isHexadecimal ? 16 : 10);
        // Qt's DOM parser truncates the number to 16 bits, so the character may become markup.
        if (character > 0xffff && (character & 0xffff) < 0x80) {
            excess = QStringLiteral("an entity with a character that only some parsers take for markup");
        }
        replaced += text.midRef(end, match.capturedStart() - end);
        replaced += character < 0x80 ? QChar(character) : QChar(QChar::ReplacementCharacter);
        end = match.capturedEnd();
    }
    return replaced += text.midRef(end);
}

bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// Takes the next word from a text, up to a space.
QByteArray takeWord(const QByteArray &text, int &at)
{
    while (at < text.size() && isSpace(text[at])) {
        ++at;
    }
    const int begin = at;
    while (at < text.size() && !isSpace(text[at])) {
        ++at;
    }
    return text.mid(begin, at - begin);
}

/// The quoted literal at the start of a text, without its quotes; null when there is none.
QByteArray nextLiteral(const QByteArray &text, int at)
{
    while (at < text.size() && isSpace(text[at])) {
        ++at;
    }
    const char quote = at < text.size() ? text[at] : '\0';
    const int end = quote == '"' || quote == '\'' ? text.indexOf(quote, at + 1) : -1;
    return end < 0 ? QByteArray() : text.mid(at + 1, end - at - 1);
}

} // namespace

DocumentTypeGuard::Cost &DocumentTypeGuard::Cost::operator+=(const Cost &other)
{
    addUpTo(characters, other.characters);
    addUpTo(references, other.references);
    addUpTo(elements, other.elements);
    addUpTo(namespaceDeclarations, other.namespaceDeclarations);
    depth = std::max(depth, other.depth);
    nesting = std::max(nesting, other.nesting);
    if (excess.isEmpty()) {
        excess = other.excess;
    }
    return *this;
}

QString DocumentTypeGuard::read(const QByteArray &documentType)
{
    if (documentType.count('<') > Limits::documentTypeDeclarations) {
        return QStringLiteral("more than %1 declarations in the document type")
            .arg(Limits::documentTypeDeclarations);
    }
    if (deepestParenthesis(documentType) > Limits::contentModelDepth) {
        return QStringLiteral("a content model that nests more than %1 levels")
            .arg(Limits::contentModelDepth);
    }
    // Expanding them would require a parser for declarations composed of fragments.
    static const QRegularExpression parameterReference(QStringLiteral("%[^\\s%;\"']+;"));
    if (parameterReference.match(QString::fromLatin1(documentType)).hasMatch()) {
        return QStringLiteral("a reference to a parameter entity in the document type");
    }
    readEntities(documentType);
    if (!documentType.contains("<!ATTLIST")) {
        return QString();
    }
    // The parsers expand entities in default values when they read the declaration.
    const Cost references = costOfReferences(QString::fromLatin1(documentType), 0);
    m_defaultAttributes = (documentType.count('"') + documentType.count('\'')) / 2;
    m_defaultCharacters = documentType.size() + references.characters;
    m_defaultNamespaceDeclarations = documentType.count("xmlns");
    return excessOf(references);
}

QString DocumentTypeGuard::excessOf(const Cost &references)
{
    if (references.references > Limits::entityReferences) {
        return QStringLiteral("more than %1 references to entities").arg(Limits::entityReferences);
    }
    if (references.characters > Limits::entityCharacters) {
        return QStringLiteral("entities that come to more than %1 characters").arg(Limits::entityCharacters);
    }
    if (references.nesting > Limits::entityNesting) {
        return QStringLiteral("more than %1 levels of nested entities").arg(Limits::entityNesting);
    }
    return references.excess;
}

void DocumentTypeGuard::readEntities(const QByteArray &documentType)
{
    // Some may be in comments or literals. All count as declarations, nested ones too, so that none can hide
    // another.
    static const QByteArray keyword = "<!ENTITY";
    int at = 0;
    while ((at = documentType.indexOf(keyword, at)) >= 0) {
        at += keyword.size();
        int afterName = at;
        QByteArray name = takeWord(documentType, afterName);
        if (name == "%") {
            name = takeWord(documentType, afterName);
        }
        const QByteArray text = nextLiteral(documentType, afterName);
        if (!text.isNull()) {
            m_entities[name].texts.append(text);
        }
    }
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOf(const QByteArray &entityName)
{
    return costOfEntity(entityName, 1);
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOfEntity(const QByteArray &entityName, int nesting)
{
    const auto found = m_entities.constFind(entityName);
    if (found == m_entities.cend()) {
        return {};
    }
    if (found->isCostKnown) {
        return found->cost;
    }
    Cost cost;
    cost.references = 1;
    cost.nesting = 1;
    if (nesting > Limits::entityNesting) {
        // Recursion into an entity that contains itself ends here.
        cost.nesting = nesting;
        return cost;
    }
    // A name may be declared several times; whichever declaration a parser uses is among these.
    const QList<QByteArray> texts = found->texts;
    for (const auto &text : texts) {
        cost += costOfText(text, nesting);
    }
    Entity &entity = m_entities[entityName];
    entity.cost = cost;
    entity.isCostKnown = true;
    return cost;
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOfText(const QByteArray &literal, int nesting)
{
    Cost own;
    const QString text = replacementText(literal, own.excess);
    own.characters = text.size();

    XmlGuard guard;
    const QByteArray markup = text.toLatin1();
    guard.follow(markup.constData(), markup.size());
    own.elements = guard.elements();
    own.namespaceDeclarations = guard.namespaceDeclarations();
    static const QRegularExpression unfinishedReference(QStringLiteral("&(?![^&;\\s]+;)"));
    if (own.excess.isEmpty()) {
        const bool isWhole = guard.isWhole() && !unfinishedReference.match(text).hasMatch();
        own.excess = isWhole ? guard.excess() : QStringLiteral("an entity that begins or ends within markup");
    }

    Cost inner = costOfReferences(text, nesting + 1);
    own.depth = guard.deepest() + inner.depth;
    own.nesting = inner.nesting + 1;
    inner.depth = 0;
    inner.nesting = 0;
    return own += inner;
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOfReferences(const QString &text, int nesting)
{
    static const QRegularExpression reference(QStringLiteral("&([^#&;\\s][^&;\\s]*);"));
    Cost cost;
    auto matches = reference.globalMatch(text);
    while (matches.hasNext() && cost.excess.isEmpty()) {
        const QString name = matches.next().captured(1);
        cost += costOfEntity(name.toLatin1(), nesting);
        if (name.contains(QChar::ReplacementCharacter)) {
            cost.excess = QStringLiteral("an entity with a reference that is put together of characters");
        }
    }
    return cost;
}

} // namespace Tobrix::Templates
