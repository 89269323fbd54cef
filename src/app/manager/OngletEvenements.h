#pragma once

#include "app/manager/OngletManager.h"

namespace corvane::app {

// The Manager tab of the events, who worked and who has been paid.
class OngletEvenements : public OngletManager
{
    Q_OBJECT

public:
    OngletEvenements(Environnement& environnement, QWidget* parent = nullptr);

    void setDocument(Document* document) override;
    void actualiser() override;
    QSet<QString> tablesLues() const override;

private:
    Environnement& m_environnement;
    Document* m_document = nullptr;
};

} // namespace corvane::app
