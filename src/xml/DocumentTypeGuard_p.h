#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace Tobrix::Templates {

/// What a document type adds to a document: what its entities come to where they are referred to, and the
/// attributes that elements get by default. Reckons rather too much than too little.
class DocumentTypeGuard
{
public:
    /// What a reference to an entity comes to, with the references inside of it.
    struct Cost
    {
        qint64 characters = 0;
        qint64 references = 0;
        qint64 elements = 0;
        qint64 namespaceDeclarations = 0;
        int depth = 0;   ///< of the elements in each other
        int nesting = 0; ///< of the entities in each other
        QString excess;  ///< why there must be no such reference, in words; empty where there may

        /// Adds what comes beside it.
        Cost &operator+=(const Cost &other);
    };

    /// Takes the text of a document type, without "<!DOCTYPE" and ">".
    /// @return what is too much in it, in words; empty when nothing is
    QString read(const QByteArray &documentType);

    bool hasEntities() const { return !m_entities.isEmpty(); }

    /// What a reference comes to; nothing for an entity that is not declared.
    Cost costOf(const QByteArray &entityName);

    /// What is too much of all the references of a document, in words; empty when nothing is.
    static QString excessOf(const Cost &references);

    /// What an element gets by default, at most: attributes, their characters, and namespace declarations.
    qint64 defaultAttributes() const { return m_defaultAttributes; }
    qint64 defaultCharacters() const { return m_defaultCharacters; }
    qint64 defaultNamespaceDeclarations() const { return m_defaultNamespaceDeclarations; }

private:
    struct Entity
    {
        QList<QByteArray> texts;
        Cost cost;
        bool isReckoned = false;
    };

    void readEntities(const QByteArray &documentType);
    void readDefaults(const QByteArray &documentType);
    Cost reckon(const QByteArray &entityName, int nesting);
    Cost reckonText(const QByteArray &literal, int nesting);
    Cost reckonReferences(const QString &text, int nesting);

    QHash<QByteArray, Entity> m_entities;
    qint64 m_defaultAttributes = 0;
    qint64 m_defaultCharacters = 0;
    qint64 m_defaultNamespaceDeclarations = 0;
};

} // namespace Tobrix::Templates
