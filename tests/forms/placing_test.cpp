// SPDX-License-Identifier: MIT
#include "forms/placing.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <ostream>

namespace quillon::test {
namespace {

const QRect kScreen{0, 0, 1920, 1080};
const QSize kBoard{400, 300};

QRect placed(const QRect& form, const QPoint& wished, const QList<QRect>& screens = {kScreen}) {
    return {beside(form, {wished, kBoard}, screens), kBoard};
}

TEST(beside, takes_a_place_that_is_whole_on_a_screen_and_leaves_the_form_free) {
    const QRect form{100, 100, 900, 600};
    EXPECT_EQ(placed(form, {1000, 100}).topLeft(), QPoint(1000, 100));
    EXPECT_EQ(placed(form, {1520, 780}).topLeft(), QPoint(1520, 780));  // up to the last pixel
    EXPECT_EQ(placed(form, {2000, 50}, {kScreen, {1920, 0, 1280, 800}}).topLeft(),
              QPoint(2000, 50));
}

TEST(beside, goes_to_the_right_of_the_form_instead_of_over_it_or_off_the_screen) {
    const QRect form{100, 100, 900, 600};
    for (const QPoint wished : {QPoint{0, 0}, QPoint{999, 100}, QPoint{1521, 100},
                                QPoint{1200, 781}, QPoint{-1, 720}, QPoint{5000, 5000}})
        EXPECT_EQ(placed(form, wished).topLeft(), QPoint(1008, 100))
            << wished.x() << "," << wished.y();
}

TEST(beside, stays_on_the_screen_beside_a_form_that_reaches_over_its_edge) {
    EXPECT_EQ(placed({100, 900, 900, 600}, {200, 700}).topLeft(), QPoint(1008, 780));
    EXPECT_EQ(placed({100, -50, 900, 600}, {0, 600}).topLeft(), QPoint(0, 600));
}

TEST(beside, goes_to_the_left_below_or_above_where_there_is_no_room_on_the_right) {
    EXPECT_EQ(placed({900, 100, 900, 600}, {900, 100}).topLeft(), QPoint(492, 100));
    EXPECT_EQ(placed({300, 100, 1400, 600}, {300, 100}).topLeft(), QPoint(300, 708));
    EXPECT_EQ(placed({300, 400, 1400, 600}, {300, 400}).topLeft(), QPoint(300, 92));
}

TEST(beside, covers_the_views_and_no_button_where_a_small_screen_has_no_room) {
    const QList<QRect> small{{0, 0, 1280, 800}};
    EXPECT_EQ(placed({6, 6, 900, 540}, {0, 0}, small), QRect(QPoint(880, 0), kBoard));
    EXPECT_EQ(placed({374, 254, 900, 540}, {0, 0}, small), QRect(QPoint(880, 0), kBoard));
}

TEST(beside, may_cover_a_form_except_for_the_areas_that_are_kept_free) {
    const QRect form{100, 100, 900, 700};
    const QList<QRect> header_and_foot{{100, 100, 900, 80}, {100, 600, 900, 200}};
    const auto at = [&](const QPoint& wished) {
        return beside(form, header_and_foot, {wished, kBoard}, {kScreen});
    };
    EXPECT_EQ(at({300, 250}), QPoint(300, 250));
    EXPECT_EQ(at({300, 180}), QPoint(300, 180));
    EXPECT_EQ(at({300, 300}), QPoint(300, 300));
    EXPECT_EQ(at({300, 179}), QPoint(1008, 100));
    EXPECT_EQ(at({300, 301}), QPoint(1008, 100));
}

TEST(beside, goes_by_the_frames_of_the_windows) {
    QWidget form;
    form.setGeometry(50, 50, 300, 200);
    form.show();
    QWidget window;
    window.setMinimumSize(100, 80);
    const QPoint at = beside(form, window, form.pos());
    EXPECT_FALSE(form.frameGeometry().intersects({at, window.sizeHint().expandedTo({100, 80})}));
    EXPECT_EQ(at.y(), form.frameGeometry().y());
}

TEST(centred_on, stays_on_the_screen_where_the_form_reaches_over_its_edge) {
    QWidget form;
    form.setGeometry(-200, -100, 300, 200);
    form.show();
    EXPECT_EQ(centred_on(form, {300, 200}), QPoint(0, 0));
}

}  // namespace
}  // namespace quillon::test
