#include "database/backups/archive.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr char formatLine[] = "VELMORA-ATSARGA 1";
constexpr qint64 longestLine = 8 << 20;
constexpr qint64 portion = 1 << 20;

QByteArray sha256(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

[[noreturn]] void failDamaged(const QString &file, const QString &reason)
{
    throw EArchiveError(u"Atsarginė kopija „%1“ sugadinta: %2."_s.arg(file, reason));
}

void openForReading(QFile &file)
{
    if (!file.open(QIODevice::ReadOnly))
        throw EFileError(u"Nepavyko perskaityti failo „%1“: %2."_s.arg(file.fileName(), fileTrouble(file)));
}

// Hands size bytes from the current place to the consumer, portion by portion; returns their checksum.
QByteArray readThrough(QFile &file, qint64 size, const std::function<void(QByteArrayView)> &consumer)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QByteArray bytes(portion, Qt::Uninitialized);
    while (size > 0) {
        const qint64 got = file.read(bytes.data(), qMin(size, portion));
        if (got <= 0)
            failDamaged(file.fileName(), u"failas nukirptas"_s);
        const QByteArrayView piece = QByteArrayView(bytes).first(got);
        hash.addData(piece);
        consumer(piece);
        size -= got;
    }
    return hash.result().toHex();
}

QJsonObject partToJson(const TArchivePart &part)
{
    return {{u"pavadinimas"_s, part.name},
            {u"dydis"_s, part.size},
            {u"sha256"_s, QString::fromLatin1(part.sha256)},
            {u"kontroline"_s, part.totals}};
}

QByteArray manifestOf(const TArchive &archive)
{
    QJsonArray parts;
    for (const TArchivePart &part : archive.parts)
        parts.append(partToJson(part));
    const QJsonObject manifest{{u"variklis"_s, archive.engine},
                               {u"sukurta"_s, archive.createdAt},
                               {u"dalys"_s, parts},
                               {u"istaiga"_s, archive.institution},
                               {u"menuo"_s, archive.month},
                               {u"redakcija"_s, archive.revision}};
    return QJsonDocument(manifest).toJson(QJsonDocument::Compact);
}

TArchive archiveOf(const QByteArray &manifest, qint64 firstPart)
{
    const QJsonObject object = QJsonDocument::fromJson(manifest).object();
    TArchive archive{.engine = object[u"variklis"].toString(),
                     .createdAt = object[u"sukurta"].toString(),
                     .institution = object[u"istaiga"].toString(),
                     .month = object[u"menuo"].toString(),
                     .revision = object[u"redakcija"].toInt()};
    qint64 offset = firstPart;
    for (const QJsonValue each : object[u"dalys"].toArray()) {
        TArchivePart part;
        part.name = each[u"pavadinimas"].toString();
        part.offset = offset;
        part.size = each[u"dydis"].toInteger();
        part.sha256 = each[u"sha256"].toString().toLatin1();
        part.totals = each[u"kontroline"].toObject();
        offset += part.size;
        archive.parts.append(part);
    }
    return archive;
}

QByteArray readLine(QFile &file)
{
    const QByteArray line = file.readLine(longestLine);
    if (!line.endsWith('\n'))
        failDamaged(file.fileName(), u"failas nukirptas arba tai ne atsarginė kopija"_s);
    return line.chopped(1);
}

TArchive readManifest(QFile &file)
{
    if (readLine(file) != formatLine)
        failDamaged(file.fileName(), u"tai ne atsarginė kopija arba ji sukurta kitos versijos programa"_s);
    const QByteArray manifest = readLine(file);
    if (readLine(file) != sha256(manifest))
        failDamaged(file.fileName(), u"neteisinga aprašo kontrolinė suma"_s);
    return archiveOf(manifest, file.pos());
}

void verifyParts(QFile &file, const TArchive &archive)
{
    for (const TArchivePart &part : archive.parts) {
        if (readThrough(file, part.size, [](QByteArrayView) {}) != part.sha256)
            failDamaged(file.fileName(), u"neteisinga dalies „%1“ kontrolinė suma"_s.arg(part.name));
    }
    if (!file.atEnd())
        failDamaged(file.fileName(), u"gale yra nereikalingų duomenų"_s);
}

void measure(TArchivePart &part, const QString &source)
{
    QFile file(source);
    openForReading(file);
    part.size = file.size();
    part.sha256 = readThrough(file, part.size, [](QByteArrayView) {});
}

} // namespace

void writeArchive(const QString &file, TArchive archive, const QStringList &partFiles)
{
    Q_ASSERT(archive.parts.size() == partFiles.size());
    TWholeFile target(file);
    for (qsizetype i = 0; i < partFiles.size(); ++i)
        measure(archive.parts[i], partFiles[i]);
    const QByteArray manifest = manifestOf(archive);
    target.write(QByteArray(formatLine) + '\n' + manifest + '\n' + sha256(manifest) + '\n');
    for (const QString &part : partFiles)
        target.append(part);
    readArchive(target.finish());
    target.publish();
}

TArchive readArchive(const QString &name)
{
    QFile file(name);
    openForReading(file);
    TArchive archive = readManifest(file);
    verifyParts(file, archive);
    return archive;
}

TArchive describeArchive(const QString &name)
{
    QFile file(name);
    openForReading(file);
    TArchive archive = readManifest(file);
    qint64 end = file.pos();
    for (const TArchivePart &part : archive.parts)
        end += part.size;
    if (end != file.size())
        failDamaged(name, end > file.size() ? u"failas nukirptas"_s : u"gale yra nereikalingų duomenų"_s);
    return archive;
}

void extractPart(const QString &name, const TArchivePart &part, const QString &target)
{
    QFile file(name);
    openForReading(file);
    if (!file.seek(part.offset))
        failDamaged(name, u"failas nukirptas"_s);
    TWholeFile out(target);
    if (readThrough(file, part.size, [&out](QByteArrayView piece) { out.write(piece); }) != part.sha256)
        failDamaged(name, u"neteisinga dalies „%1“ kontrolinė suma"_s.arg(part.name));
    out.publish();
}
