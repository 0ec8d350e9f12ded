#include "desktop/ShippedFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QMap>
#include <QSaveFile>

namespace velluto {

namespace {

constexpr QLatin1String kRecord(".velluto-shipped");
constexpr qsizetype kSumLength = 64; // digits
constexpr qsizetype kNameAt = kSumLength + 2;

struct Shipped {
    QString name; // from the folder on, with slashes
    QByteArray sum;
};

// Lines as sha256sum writes them; what is none is left out.
QList<Shipped> ReadList(const QString &path)
{
    QFile file(path);
    QList<Shipped> list;
    if (!file.open(QIODevice::ReadOnly)) {
        return list;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.size() > kNameAt) {
            list.append({QString::fromUtf8(line.sliced(kNameAt)).remove(QLatin1Char('\r')), line.first(kSumLength)});
        }
    }
    return list;
}

QByteArray SumOf(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}

bool WriteWhole(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

// Never a part of a file in the place of a whole one.
bool Put(const QString &from, const QString &to)
{
    QFile file(from);
    return QDir().mkpath(QFileInfo(to).path()) && file.open(QIODevice::ReadOnly) && WriteWhole(to, file.readAll());
}

bool IsCompilation(const QString &name)
{
    return name.startsWith(QLatin1String("c-")) && name.endsWith(QLatin1String(".cmp"));
}

// Sees to one file, and answers the sum to record for it: that of what was put there last, none where nothing ever was.
QByteArray Settle(const Shipped &shipped, const QByteArray &recorded, const QString &from, const QString &to)
{
    const QFileInfo there(to);
    if (there.isSymLink()) {
        return recorded;
    }
    if (there.size() == 0) {
        const bool staysAway = IsCompilation(shipped.name) && !recorded.isEmpty();
        return !staysAway && Put(from, to) ? shipped.sum : recorded;
    }
    if (recorded == shipped.sum) {
        return recorded;
    }
    const QByteArray have = SumOf(to);
    if (have == shipped.sum) {
        return shipped.sum;
    }
    return !have.isEmpty() && have == recorded && Put(from, to) ? shipped.sum : recorded;
}

} // namespace

void PutShippedFiles(const QString &program, const QString &user)
{
    const QDir from(QDir(program).filePath(kShippedFolder));
    const QDir to(user);
    const QString record = to.filePath(kRecord);
    const QList<Shipped> before = ReadList(record);
    QMap<QString, QByteArray> recorded;
    for (const Shipped &entry : before) {
        recorded.insert(entry.name, entry.sum);
    }
    const QList<Shipped> list = ReadList(QDir(program).filePath(kShippedList));
    QByteArray now;
    QByteArray then;
    for (const Shipped &shipped : list) {
        const QByteArray sum = Settle(shipped, recorded.value(shipped.name), from.filePath(shipped.name), to.filePath(shipped.name));
        if (!sum.isEmpty()) {
            now += sum + "  " + shipped.name.toUtf8() + '\n';
        }
    }
    for (const Shipped &entry : before) {
        then += entry.sum + "  " + entry.name.toUtf8() + '\n';
    }
    if (now != then) {
        WriteWhole(record, now);
    }
}

} // namespace velluto
