#pragma once
// The pictures of a rich-text document. A picture read from a template is kept
// twice in the document's resources under one name: decoded, for drawing, and
// as the file's own bytes, so that writing the template back gives the very
// same PNG or JPEG data.

#include <QByteArray>
#include <QString>

class QTextDocument;

namespace plouvarine {

// The picture kinds that the reports draw.
enum class PictureKind { None, Png, Jpeg };

// The kind of picture `bytes` hold, from their signature.
PictureKind picture_kind(const QByteArray& bytes);

// Adds the PNG or JPEG `bytes` to the resources of `document` and gives the
// name that an image format refers to; empty when they cannot be decoded.
QString add_picture(QTextDocument& document, const QByteArray& bytes);

// The bytes of the picture `name` as they were read, or, for a picture that the
// program made, its PNG encoding; empty when the document has no such picture.
QByteArray picture_bytes(const QTextDocument& document, const QString& name);

// Puts in `to` the pictures that the image formats of `from` refer to, so that
// text copied from one document keeps its pictures in the other.
void copy_pictures(const QTextDocument& from, QTextDocument& to);

}  // namespace plouvarine
