#include "app/DialoguesQt.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace corvane::app {

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
    return QFileDialog::getSaveFileName(m_parent, titre,
                                        QDir(dossier).filePath(nomPropose + QLatin1Char('.') + extension),
                                        QStringLiteral("Fichiers Corvane (*.%1)").arg(extension));
}

} // namespace corvane::app
