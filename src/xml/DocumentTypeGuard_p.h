#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace Tobrix::Templates {

/// What a document type adds to a document: the expansion of its entities, and default attributes. Upper
/// bounds, not exact numbers.
class DocumentTypeGuard
{
public:
    /// The cost of a reference to an entity, nested references included.
    struct Cost
    {
        qint64 characters = 0;
        qint64 references = 0;
        qint64 elements = 0;
        qint64 namespaceDeclarations = 0;
        int depth = 0;   ///< nesting depth of elements
        int nesting = 0; ///< nesting depth of entities
        QString excess;  ///< the limit that such a reference exceeds, in words; empty when none

        /// Adds the cost of a reference that is not nested in this one.
        Cost &operator+=(const Cost &other);
    };

    /// Takes the text of a document type, without "<!DOCTYPE" and ">".
    /// @return the exceeded limit in words; empty when none
    QString read(const QByteArray &documentType);

    bool hasEntities() const { return !m_entities.isEmpty(); }

    /// The cost of a reference; nothing for an undeclared entity.
    Cost costOf(const QByteArray &entityName);

    /// The limit that the references of a document exceed, in words; empty when none.
    static QString excessOf(const Cost &references);

    /// Upper bounds of what one element gets by default: attributes, their characters, namespace
    /// declarations.
    qint64 defaultAttributes() const { return m_defaultAttributes; }
    qint64 defaultCharacters() const { return m_defaultCharacters; }
    qint64 defaultNamespaceDeclarations() const { return m_defaultNamespaceDeclarations; }

private:
    struct Entity
    {
        QList<QByteArray> texts;
        Cost cost;
        bool isCostKnown = false;
    };

    void readEntities(const QByteArray &documentType);
    void readDefaults(const QByteArray &documentType);
    Cost costOfEntity(const QByteArray &entityName, int nesting);
    Cost costOfText(const QByteArray &literal, int nesting);
    Cost costOfReferences(const QString &text, int nesting);

    QHash<QByteArray, Entity> m_entities;
    qint64 m_defaultAttributes = 0;
    qint64 m_defaultCharacters = 0;
    qint64 m_defaultNamespaceDeclarations = 0;
};

} // namespace Tobrix::Templates
