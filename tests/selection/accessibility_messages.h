// The messages of the accessibility bus as a program sends and receives them.

#pragma once

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QList>
#include <QMap>
#include <QString>

namespace test {

using Attributes = QMap<QString, QString>;

// A reference to an object, as it is marshalled.
struct Reference {
    QString service;
    QDBusObjectPath path;
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

// A relation of an object to others, as it is marshalled.
struct Relation {
    uint kind = 0;
    QList<Reference> targets;
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const Relation& relation)
{
    argument.beginStructure();
    argument << relation.kind << relation.targets;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, Relation& relation)
{
    argument.beginStructure();
    argument >> relation.kind >> relation.targets;
    argument.endStructure();
    return argument;
}

// The number of the object that a call is for, which its path ends with.
inline int numberOf(const QString& path)
{
    return path.mid(path.lastIndexOf(u'/') + 1).toInt();
}

// The method that is called, or the property that is asked for.
inline QString memberOf(const QDBusMessage& call)
{
    return call.member() == QLatin1String("Get") ? call.arguments().value(1).toString()
                                                 : call.member();
}

}  // namespace test

Q_DECLARE_METATYPE(test::Reference)
Q_DECLARE_METATYPE(test::Relation)
