#include "wheel.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegExp>

#include <cctype>

namespace {

constexpr double largestDisturbance = 1000; // converter steps

int lineAt(const QByteArray &text, int offset)
{
    return 1 + text.left(offset).count('\n');
}

// Qt's parser keeps no places, but it has accepted the text: only strings and depth matter here.
int offsetOfKey(const QByteArray &text, int index)
{
    int depth = 0;
    bool inString = false;
    for (int i = text.indexOf('[', text.indexOf(R"("keys")")) + 1; i < text.size(); ++i) {
        const char character = text.at(i);
        if (index == 0 && !std::isspace(static_cast<unsigned char>(character)))
            return i;
        if (inString && character == '\\')
            ++i;
        else if (character == '"')
            inString = !inString;
        else if (!inString && (character == '{' || character == '['))
            ++depth;
        else if (!inString && (character == '}' || character == ']'))
            --depth;
        else if (!inString && character == ',' && depth == 0)
            --index;
    }
    return 0;
}

bool isWhole(const QJsonValue &value, int lowest, int highest)
{
    const int number = value.toInt(-1);
    return number >= lowest && number <= highest;
}

QString unknownMember(const QJsonObject &object, const QStringList &known)
{
    for (const QString &name : object.keys()) {
        if (!known.contains(name))
            return name;
    }
    return QString();
}

bool isContact(const QJsonArray &values)
{
    return values.size() == 3 && isWhole(values.at(0), 0, idleValue)
        && isWhole(values.at(1), 0, idleValue) && isWhole(values.at(2), 0, idleValue);
}

QString faultOfKey(const QJsonObject &key, const Wheel &wheel)
{
    const QString name = key.value("name").toString();
    const QString unknown = unknownMember(key, { "name", "label", "code", "line", "adc" });
    if (name.isEmpty() || name.contains(QRegExp("\\s")) || name == "all" || name == "none")
        return R"(a key needs a "name": one word, not "all" or "none")";
    if (wheel.find(name))
        return QString(R"(two keys are named "%1")").arg(name);
    if (!unknown.isEmpty())
        return QString(R"(key "%1" has the unknown member "%2")").arg(name, unknown);
    if (!isWhole(key.value("code"), 1, 65535))
        return QString(R"(key "%1" needs a "code" from 1 to 65535)").arg(name);
    if (!isWhole(key.value("line"), 2, 3))
        return QString(R"(key "%1" needs a "line", 2 or 3)").arg(name);
    if (!isContact(key.value("adc").toArray()))
        return QString(R"(key "%1" needs "adc", three whole numbers from 0 to 4094)").arg(name);
    return QString();
}

WheelKey wheelKey(const QJsonObject &key)
{
    WheelKey result;
    result.name = key.value("name").toString();
    result.label = key.value("label").toString(result.name.toUpper());
    result.code = key.value("code").toInt();
    result.contact.line = key.value("line").toInt();
    const QJsonArray values = key.value("adc").toArray();
    for (int i = 0; i < 3; ++i)
        result.contact.adc[i] = values.at(i).toInt();
    return result;
}

QString readKeys(const QByteArray &text, const QJsonArray &keys, Wheel *wheel, int *offset)
{
    for (int i = 0; i < keys.size(); ++i) {
        const QJsonObject key = keys.at(i).toObject();
        QString fault = faultOfKey(key, *wheel);
        if (!fault.isEmpty()) {
            *offset = offsetOfKey(text, i);
            return fault;
        }
        wheel->keys.append(wheelKey(key));
    }
    return keys.isEmpty() ? R"(a wheel needs "keys", an array of at least one)" : QString();
}

// What is wrong, and where; empty if nothing is.
QString readWheel(const QByteArray &text, Wheel *wheel, int *offset)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError) {
        *offset = error.offset;
        return error.errorString();
    }
    const QString unknown = unknownMember(object, { "noise", "drift", "bounce", "keys" });
    if (!unknown.isEmpty()) {
        *offset = text.indexOf('"' + unknown.toUtf8() + '"');
        return QString(R"(unknown member "%1")").arg(unknown);
    }
    const QPair<const char *, double *> disturbances[] = { { "noise", &wheel->noise },
                                                           { "drift", &wheel->drift },
                                                           { "bounce", &wheel->bounce } };
    for (const auto &each : disturbances) {
        *each.second = object.value(each.first).toDouble(-1);
        if (*each.second < 0 || *each.second > largestDisturbance) {
            *offset = text.indexOf('"' + QByteArray(each.first) + '"');
            return QString(R"(a wheel needs "%1", a number from 0 to %2)")
                .arg(each.first)
                .arg(largestDisturbance);
        }
    }
    return readKeys(text, object.value("keys").toArray(), wheel, offset);
}

} // namespace

bool parseWheel(const QByteArray &text, Wheel *wheel, QString *fault)
{
    int offset = 0;
    *wheel = Wheel();
    const QString what = readWheel(text, wheel, &offset);
    if (!what.isEmpty())
        *fault = QString("line %1: %2").arg(lineAt(text, offset)).arg(what);
    return what.isEmpty();
}

// The library is static, so nothing else would link the resource in.
static void initializeResource()
{
    Q_INIT_RESOURCE(wheel);
}

QByteArray builtInWheel()
{
    initializeResource();
    QFile file(":/wheel.json");
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}
