#pragma once

#include <QWidget>

#include "ui_InformationPage.h"

namespace quarvelle {

/// What magic squares and complete magic squares are.
class InformationPage : public QWidget {
    Q_OBJECT

public:
    explicit InformationPage(QWidget* parent = nullptr) : QWidget(parent) { m_controls.setupUi(this); }

    const Ui::InformationPage& controls() const { return m_controls; }

private:
    Ui::InformationPage m_controls;
};

} // namespace quarvelle
