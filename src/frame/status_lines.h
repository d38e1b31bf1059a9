#pragma once
// The short lines that the second panel of the status bar keeps after a
// command has done its work, or has refused to, so that the person sees that
// something happened. A running step's caption replaces them.

#include <QString>

namespace plouvarine {

class AppContext;

inline const QString kStatusCancelled = QStringLiteral("Opérations annulées");
inline const QString kStatusRestored = QStringLiteral("Base reprise depuis la dernière sauvegarde");
inline const QString kStatusDeleted = QStringLiteral("Suppression enregistrée");
inline const QString kStatusClubSaved = QStringLiteral("Club enregistré");
inline const QString kStatusProgSaved = QStringLiteral("Programme enregistré");
inline const QString kStatusSaveWriting = QStringLiteral("Écriture de la sauvegarde en cours");
inline const QString kStatusCloseWindowsFirst = QStringLiteral("Fermez d'abord les fenêtres ouvertes.");

// "Base enregistrée à 13:04", at the time of the program's clock.
QString saved_at_text(const AppContext& app);

}  // namespace plouvarine
