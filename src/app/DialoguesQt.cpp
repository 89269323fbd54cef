#include "app/DialoguesQt.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace corvane::app {

namespace {

// The file-type line of a panel, in the user's words.
QString filtre(const QStringList& extensions)
{
    QStringList motifs;
    for (const QString& e : extensions)
        motifs << QStringLiteral("*.") + e;
    const QString premiere = extensions.value(0);
    // A receipt may be a scan, a photo or a PDF, or any other file.
    if (extensions.contains(QLatin1String("pdf")) && extensions.contains(QLatin1String("jpg")))
        return QStringLiteral("Justificatifs (%1);;Tous les fichiers (*)").arg(motifs.join(QLatin1Char(' ')));
    QString genre = QStringLiteral("Fichiers");
    if (premiere == QLatin1String("cv4") || premiere == QLatin1String("or3"))
        genre = QStringLiteral("Fichiers Corvane");
    else if (premiere == QLatin1String("pdf"))
        genre = QStringLiteral("Documents PDF");
    else if (premiere == QLatin1String("csv"))
        genre = QStringLiteral("Fichiers CSV");
    return QStringLiteral("%1 (%2)").arg(genre, motifs.join(QLatin1Char(' ')));
}

} // namespace

QString DialoguesQt::question(const QString& titre, const QString& message, const QStringList& boutons)
{
    QMessageBox boite(QMessageBox::Question, titre, message, QMessageBox::NoButton, m_parent);
    QList<QAbstractButton*> crees;
    for (const QString& libelle : boutons)
        crees << boite.addButton(libelle, crees.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
    boite.exec();
    const int index = int(crees.indexOf(boite.clickedButton()));
    return boutons.value(index < 0 ? boutons.size() - 1 : index);
}

void DialoguesQt::information(const QString& titre, const QString& message, const QString& bouton)
{
    QMessageBox boite(QMessageBox::Information, titre, message, QMessageBox::NoButton, m_parent);
    boite.addButton(bouton, QMessageBox::AcceptRole);
    boite.exec();
}

QString DialoguesQt::choisirFichierAEnregistrer(const QString& titre, const QString& dossier, const QString& nomPropose,
                                                const QString& extension)
{
    return QFileDialog::getSaveFileName(
        m_parent, titre, QDir(dossier).filePath(nomPropose + QLatin1Char('.') + extension), filtre({extension}));
}

QString DialoguesQt::choisirFichierAOuvrir(const QString& titre, const QString& dossier, const QStringList& extensions)
{
    return QFileDialog::getOpenFileName(m_parent, titre, dossier, filtre(extensions));
}

} // namespace corvane::app
