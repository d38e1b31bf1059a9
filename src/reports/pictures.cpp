#include "src/reports/pictures.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QUrl>

namespace plouvarine {

namespace {

// The bytes as read sit beside the decoded image under a name of their own:
// the document keeps one resource per name, whatever its type.
constexpr int kPictureBytes = QTextDocument::UserResource;

QUrl bytes_name(const QString& name)
{
    return QUrl(name + QStringLiteral("#octets"));
}

}  // namespace

PictureKind picture_kind(const QByteArray& bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return PictureKind::Png;
    if (bytes.startsWith("\xff\xd8\xff"))
        return PictureKind::Jpeg;
    return PictureKind::None;
}

QString add_picture(QTextDocument& document, const QByteArray& bytes)
{
    const PictureKind kind = picture_kind(bytes);
    if (kind == PictureKind::None)
        return {};
    QImage image;
    if (!image.loadFromData(bytes, kind == PictureKind::Png ? "PNG" : "JPEG"))
        return {};
    // Named by content: the same logo twice is held once.
    const QString name = QStringLiteral("picture:") +
                         QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    document.addResource(QTextDocument::ImageResource, QUrl(name), image);
    document.addResource(kPictureBytes, bytes_name(name), bytes);
    return name;
}

QByteArray picture_bytes(const QTextDocument& document, const QString& name)
{
    const QVariant bytes = document.resource(kPictureBytes, bytes_name(name));
    if (bytes.typeId() == QMetaType::QByteArray)
        return bytes.toByteArray();
    const QVariant image = document.resource(QTextDocument::ImageResource, QUrl(name));
    if (image.typeId() != QMetaType::QImage)
        return {};
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.value<QImage>().save(&buffer, "PNG");
    return png;
}

void copy_pictures(const QTextDocument& from, QTextDocument& to)
{
    for (QTextBlock block = from.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (!format.isImageFormat())
                continue;
            const QString name = format.toImageFormat().name();
            const QVariant image = from.resource(QTextDocument::ImageResource, QUrl(name));
            if (image.isValid())
                to.addResource(QTextDocument::ImageResource, QUrl(name), image);
            const QVariant bytes = from.resource(kPictureBytes, bytes_name(name));
            if (bytes.isValid())
                to.addResource(kPictureBytes, bytes_name(name), bytes);
        }
    }
}

}  // namespace plouvarine
