#pragma once
// Base files as whole files: a new base from the model, deletion, compaction
// and the zip archive a club keeps of its base.

#include <QString>

namespace plouvarine {

class Services;

// Copies the model base over `target`; reports a missing model and gives false.
bool copy_model(Services& ui, const QString& model, const QString& target);
// The archive's file name: the base's name less its last four characters, ".zip".
QString archive_name(const QString& base_path);
// The rate of an archive: the space saved in percent, rounded half to even.
int compression_rate(qint64 base_size, qint64 zip_size);


}  // namespace plouvarine
