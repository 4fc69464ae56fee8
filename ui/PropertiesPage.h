#pragma once

#include <QWidget>

#include "engine/ProgramState.h"
#include "ui_PropertiesPage.h"

namespace quarvelle {

/// Which lines of a puzzle may carry blanks, and the optional shapes of 5 by 5 squares.
class PropertiesPage : public QWidget {
    Q_OBJECT

public:
    explicit PropertiesPage(ProgramState& state, QWidget* parent = nullptr);

    const Ui::PropertiesPage& controls() const { return m_controls; }

    void Check2_Click();
    void Check3_Click();
    /// Called when the page is closed: makes sure that at least one of the two line options is ticked.
    void keepOneLineOption();
    /// Reads the four pairs of boxes for 5 by 5 squares into their mode fields, which are 0 for any other
    /// size. Where both boxes of a pair are ticked, the first counts.
    void readPairs();

private:
    ProgramState& m_state;
    Ui::PropertiesPage m_controls;
};

/// A pair of boxes of which at most one is ticked, and the mode field that says which.
struct PropertyPair {
    CaptionCheckBox* Ui::PropertiesPage::*onlyMain;
    CaptionCheckBox* Ui::PropertiesPage::*all;
    int ProgramState::*mode;
};

inline constexpr PropertyPair propertyPairs[] = {
    {&Ui::PropertiesPage::Check4, &Ui::PropertiesPage::Check5, &ProgramState::crossDiagonalMode},
    {&Ui::PropertiesPage::Check6, &Ui::PropertiesPage::Check7, &ProgramState::crossLineMode},
    {&Ui::PropertiesPage::Check8, &Ui::PropertiesPage::Check9, &ProgramState::scatteredCrossDiagonalMode},
    {&Ui::PropertiesPage::Check10, &Ui::PropertiesPage::Check11, &ProgramState::scatteredCrossLineMode},
};

} // namespace quarvelle
