#include <CommandSystem/TemplateTools.h>

#include "platform/OutputFile.h"
#include "platform/Utility.h"
#include "template/ElementReader.h"
#include "template/MapFileReader.h"
#include "template/TemplateNameScanner.h"
#include "template/TemplateToolsImpl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cstdio>
#include <utility>

CS_BEGIN_NAMESPACE

namespace {

QByteArray fileNameOf(const QString& path)
{
    return QFileInfo(path).fileName().toUtf8();
}

QByteArray errorOf(const QIODevice& device)
{
    return device.errorString().toUtf8();
}

void debugReadError(const QString& path, const QXmlStreamReader& reader)
{
    qDebug("An error has occurred while loading %s at line %lld, column %lld: %s",
           fileNameOf(path).constData(), static_cast<long long>(reader.lineNumber()),
           static_cast<long long>(reader.columnNumber()),
           reader.errorString().toUtf8().constData());
}

void printWriteError(const QString& path, const OutputFile& file)
{
    std::printf("Can not write to file %s: %s\n", fileNameOf(path).constData(),
                file.errorString().toUtf8().constData());
}


void writeMap(QXmlStreamWriter& writer, const QHash<QString, QString>& map)
{
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("maps"));
    writer.writeAttribute(QStringLiteral("name"), QStringLiteral("Vexa"));
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("Kestrel 10.25"));
    QStringList keys = map.keys();
    std::sort(keys.begin(), keys.end());
    for (const QString& key : std::as_const(keys)) {
        writer.writeStartElement(QStringLiteral("map"));
        writer.writeAttribute(QStringLiteral("key"), key);
        writer.writeAttribute(QStringLiteral("value"), QFileInfo(map.value(key)).fileName());
        writer.writeEndElement();
    }
    writer.writeEndElement();
    writer.writeEndDocument();
}

} // namespace

TemplateTools::TemplateTools()
    : d(new TemplateToolsImpl(this))
{
}

TemplateTools::~TemplateTools()
{
    delete d;
}

bool TemplateTools::loadTemplate(const QString& filePath, QList<Template*>& templates)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qDebug("Can not read file %s: %s", fileNameOf(filePath).constData(),
               errorOf(file).constData());
        return false;
    }
    QXmlStreamReader reader(&file);
    ElementReader::readTemplateFile(
        reader, [&] { return TemplateToolsImpl::readTemplate(reader, templates); });
    if (reader.hasError()) {
        debugReadError(filePath, reader);
        return false;
    }
    return true;
}

bool TemplateTools::validateTemplate(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        std::printf("Can not read file %s: %s\n", filePath.toUtf8().constData(),
                    errorOf(file).constData());
        return false;
    }
    QXmlStreamReader reader(&file);
    d->validateDocument(reader);
    if (reader.hasError()) {
        std::printf("An error has occurred while loading %s at line %lld, column %lld: %s\n",
                    fileNameOf(filePath).constData(), static_cast<long long>(reader.lineNumber()),
                    static_cast<long long>(reader.columnNumber()),
                    reader.errorString().toUtf8().constData());
        return false;
    }
    return true;
}

// Every file is validated and reports for itself; the directory as a whole never fails.
bool TemplateTools::validateTemplates(const QString& directory)
{
    QStringList files;
    VrCu::Utility::Ls(directory.toLocal8Bit().constData(), files, 2, true, "*.tcmd");
    for (const QString& file : std::as_const(files))
        validateTemplate(file);
    return true;
}

void TemplateTools::setParseFunction(int type, ParseFunction function)
{
    if (type < 0 || type >= TemplateToolsImpl::typeCount)
        return;
    d->parseFunctions[type] = function ? function : TemplateToolsImpl::defaultParseFunction;
}

// Paths are converted to 8-bit text as UTF-8 throughout, so the directory can be tested as it
// is given.
QString TemplateTools::mapFile(const QString& directory)
{
    if (!QFileInfo(directory).isDir())
        return QString();
    return QDir(directory).absoluteFilePath(QStringLiteral(".map"));
}

bool TemplateTools::isMapExist(const QString& directory)
{
    const QString path = mapFile(directory);
    return !path.isEmpty() && QFile::exists(path);
}

// A file that defines just the template it is named after needs no entry: the pool finds it
// by its name.
bool TemplateTools::buildMap(const QString& directory, QHash<QString, QString>& map)
{
    const QFileInfoList files = QDir(directory).entryInfoList(
        QStringList(QStringLiteral("*.tcmd")), QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& info : files) {
        const QString path = info.absoluteFilePath();
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            std::printf("Can not read file %s: %s\n", info.fileName().toUtf8().constData(),
                        errorOf(file).constData());
            return false;
        }
        const QStringList names = TemplateNameScanner(file.readAll()).names();
        if (names.size() == 1 && names.first() == info.completeBaseName())
            continue;
        for (const QString& name : names) {
            const auto existing = map.constFind(name);
            if (existing != map.constEnd())
                std::printf("There is a same template name in %s\n",
                            existing.value().toUtf8().constData());
            map.insert(name, path);
        }
    }
    return true;
}

bool TemplateTools::loadMap(const QString& mapFilePath, QHash<QString, QString>& map)
{
    QFile file(mapFilePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qDebug("Can not read file %s: %s", fileNameOf(mapFilePath).constData(),
               errorOf(file).constData());
        return false;
    }
    QXmlStreamReader reader(&file);
    MapFileReader(reader, QFileInfo(mapFilePath).absoluteDir(), map).read();
    if (reader.hasError()) {
        debugReadError(mapFilePath, reader);
        return false;
    }
    return true;
}

// A failed write leaves the previous map file in place.
bool TemplateTools::saveMap(const QString& mapFilePath, const QHash<QString, QString>& map)
{
    OutputFile file(mapFilePath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        printWriteError(mapFilePath, file);
        return false;
    }
    QXmlStreamWriter writer(file.device());
    writer.setAutoFormatting(true);
    writeMap(writer, map);
    if (writer.hasError() || !file.commit()) {
        printWriteError(mapFilePath, file);
        return false;
    }
    return true;
}

CS_END_NAMESPACE
