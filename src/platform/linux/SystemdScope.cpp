#include "platform/linux/SystemdScope.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QList>

#include <string>
#include <utility>

namespace pello {

/// One property of a unit: (sv).
struct UnitProperty {
    QString name;
    QDBusVariant value;
};

/// A unit to be made along with another: (sa(sv)).
struct AuxiliaryUnit {
    QString name;
    QList<UnitProperty> properties;
};

// How Qt writes and reads structures: by operators of this very shape.
// NOLINTBEGIN(misc-use-internal-linkage, bugprone-return-const-ref-from-parameter)

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property) {
    argument.beginStructure();
    argument << property.name << property.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property) {
    argument.beginStructure();
    argument >> property.name >> property.value;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit) {
    argument.beginStructure();
    argument << unit.name << unit.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit) {
    argument.beginStructure();
    argument >> unit.name >> unit.properties;
    argument.endStructure();
    return argument;
}

// NOLINTEND(misc-use-internal-linkage, bugprone-return-const-ref-from-parameter)

} // namespace pello

Q_DECLARE_METATYPE(pello::UnitProperty)
Q_DECLARE_METATYPE(pello::AuxiliaryUnit)

namespace pello {

namespace {

void registerTypes() {
    static const bool registered = [] {
        qDBusRegisterMetaType<UnitProperty>();
        qDBusRegisterMetaType<QList<UnitProperty>>();
        qDBusRegisterMetaType<AuxiliaryUnit>();
        qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
        return true;
    }();
    static_cast<void>(registered);
}

/// Unit names escape everything that they give a meaning to, the separating hyphen included.
std::string escaped(std::string_view applicationID) {
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.:";
    constexpr std::string_view kHex = "0123456789abcdef";
    std::string name;
    for (const char c : applicationID) {
        if (kPlain.find(c) != std::string_view::npos) {
            name += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            name += {'\\', 'x', kHex[byte >> 4U], kHex[byte & 0xFU]};
        }
    }
    return name;
}

} // namespace

std::string scopeName(std::string_view applicationID, pid_t pid) {
    constexpr std::size_t kLongest = 150; // a unit's name may have 255 bytes
    return "app-pello-" + escaped(applicationID).substr(0, kLongest) + "-" + std::to_string(pid) +
           ".scope";
}

void moveToScope(const QDBusConnection& bus, std::string_view applicationID, pid_t pid) {
    registerTypes();
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.systemd1"), QStringLiteral("/org/freedesktop/systemd1"),
        QStringLiteral("org.freedesktop.systemd1.Manager"), QStringLiteral("StartTransientUnit"));
    message.setAutoStartService(false);
    const auto property = [](const char* name, const QVariant& value) {
        return UnitProperty{.name = QString::fromLatin1(name), .value = QDBusVariant(value)};
    };
    const QString id =
        QString::fromUtf8(applicationID.data(), static_cast<qsizetype>(applicationID.size()));
    const QList<UnitProperty> properties = {
        property("PIDs", QVariant::fromValue(QList<uint>{static_cast<uint>(pid)})),
        property("Slice", QStringLiteral("app.slice")),
        property("Description", id),
        property("CollectMode", QStringLiteral("inactive-or-failed")),
    };
    message << QString::fromStdString(scopeName(applicationID, pid)) << QStringLiteral("fail")
            << QVariant::fromValue(properties) << QVariant::fromValue(QList<AuxiliaryUnit>());
    bus.send(message);
}

} // namespace pello
