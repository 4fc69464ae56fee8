#include <QGuiApplication>
#include <QStringList>
#include <iostream>
#include <stdexcept>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "packaging/demo/BoardReader.h"
#include "packaging/demo/Screen.h"

namespace {

using namespace quarvelle;
using namespace quarvelle::demo;

constexpr const char* usage = "board_reader picture FILE\n"
                              "board_reader color NAME\n"
                              "board_reader captions X Y WIDTH HEIGHT across|down\n"
                              "board_reader board ORDER START DISTANCE\n";

void print(const std::vector<QPoint>& points) {
    for (const QPoint& point : points)
        std::cout << point.x() << ' ' << point.y() << '\n';
}

/// Prints, for each blank in the order in which a person can find them, where to click and what to type.
void printAnswers(int order, double start, double distance) {
    std::vector<QString> texts;
    for (int k = 1; k <= order * order; ++k)
        texts.push_back(QString::fromStdString(numberText(realValue(k, start, distance))));
    const Board board = readBoard(screenPicture(), order, texts);
    for (const Answer& answer : solve(board))
        std::cout << board.corner.x() + answer.x * board.cellWidth + board.cellWidth / 2 << ' '
                  << board.corner.y() + answer.y * 18 + 9 << ' '
                  << texts[static_cast<std::size_t>(answer.rank)].toStdString() << '\n';
}

void run(const QStringList& words) {
    const QString command = words.value(1);
    if (command == "picture" && words.size() == 3) {
        constexpr int smallestFile = 0;
        if (!stillScreenPicture().save(words[2], "PNG", smallestFile))
            throw std::runtime_error("the picture can't be written");
    } else if (command == "color" && words.size() == 3) {
        const QRect bounds = boundsOf(screenPicture(), QColor(words[2]));
        if (bounds.isEmpty())
            throw std::runtime_error("this color is nowhere on the screen");
        print({bounds.topLeft()});
    } else if (command == "captions" && words.size() == 7) {
        const QRect strip(words[2].toInt(), words[3].toInt(), words[4].toInt(), words[5].toInt());
        print(captions(screenPicture(), strip, words[6] == "across"));
    } else if (command == "board" && words.size() == 5) {
        printAnswers(words[2].toInt(), words[3].toDouble(), words[4].toDouble());
    } else {
        throw std::runtime_error(usage);
    }
}

} // namespace

/// Looks at the screen for a script that plays with mouse and keyboard.
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    try {
        run(QGuiApplication::arguments());
        return 0;
    } catch (const std::runtime_error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
