#pragma once

#include "app/manager/OngletManager.h"

namespace corvane::app {

// The Manager tab of the structures and their employees, as an outline.
class OngletPersonnel : public OngletManager
{
    Q_OBJECT

public:
    OngletPersonnel(Environnement& environnement, QWidget* parent = nullptr);

    void setDocument(Document* document) override;
    void actualiser() override;
    QSet<QString> tablesLues() const override;

private:
    Environnement& m_environnement;
    Document* m_document = nullptr;
};

} // namespace corvane::app
