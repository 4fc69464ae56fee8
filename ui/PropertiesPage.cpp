#include "ui/PropertiesPage.h"

namespace quarvelle {

namespace {

/// A box of a pair was ticked or unticked. Unticking the partner runs this for the partner first, so the
/// field is written last.
void takeTick(int& mode, const CaptionCheckBox& box, CaptionCheckBox& partner, int modeWhenTicked) {
    mode = PropertyMode::none;
    if (box.isChecked()) {
        partner.setChecked(false);
        mode = modeWhenTicked;
    }
}

} // namespace

PropertiesPage::PropertiesPage(ProgramState& state, QWidget* parent) : QWidget(parent), m_state(state) {
    m_controls.setupUi(this);
    connect(m_controls.Check2, &QCheckBox::toggled, this, &PropertiesPage::Check2_Click);
    connect(m_controls.Check3, &QCheckBox::toggled, this, &PropertiesPage::Check3_Click);
    for (const PropertyPair& pair : propertyPairs) {
        CaptionCheckBox* const onlyMain = m_controls.*pair.onlyMain;
        CaptionCheckBox* const all = m_controls.*pair.all;
        int& mode = m_state.*pair.mode;
        connect(onlyMain, &QCheckBox::toggled, this,
                [=, &mode] { takeTick(mode, *onlyMain, *all, PropertyMode::onlyMain); });
        connect(all, &QCheckBox::toggled, this,
                [=, &mode] { takeTick(mode, *all, *onlyMain, PropertyMode::all); });
    }
}

void PropertiesPage::Check2_Click() {
    m_state.mainDiagonalsAndLines = m_controls.Check2->isChecked();
}

void PropertiesPage::Check3_Click() {
    m_state.allDiagonals = m_controls.Check3->isChecked();
}

void PropertiesPage::keepOneLineOption() {
    if (!m_controls.Check2->isChecked() && !m_controls.Check3->isChecked())
        m_controls.Check2->setChecked(true);
}

void PropertiesPage::readPairs() {
    for (const PropertyPair& pair : propertyPairs) {
        CaptionCheckBox& onlyMain = *(m_controls.*pair.onlyMain);
        CaptionCheckBox& all = *(m_controls.*pair.all);
        int& mode = m_state.*pair.mode;
        mode = PropertyMode::none;
        if (m_state.squareSize != 5)
            continue;
        if (onlyMain.isChecked())
            takeTick(mode, onlyMain, all, PropertyMode::onlyMain);
        if (all.isChecked())
            takeTick(mode, all, onlyMain, PropertyMode::all);
    }
}

} // namespace quarvelle
