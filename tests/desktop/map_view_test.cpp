// The map's viewport: stacking order, damage, fine pictures, presses and tool tips.
#include "front/qt/map_view.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <set>
#include <utility>

#include "listener.h"
#include "map/pointing.h"
#include "stage.h"

namespace ardane {
namespace {

const QColor sea(0, 0, 200), land(200, 200, 0), mark(200, 0, 0);

class MapViews : public testing::Test {
 protected:
  MapViews() {
    view.gauche = view.haut = 0;
    view.largeur = 100;
    view.hauteur = 80;
    window.largeur = 100;
    window.hauteur = 80;
    map.genre = Genre::image;
  }
  Contrôle &picture(const std::string &name, const char *image, int x, int y) {
    Contrôle &control = place(window, name, Genre::image, {x, y, 0, 0}, &view);
    poser_image(control, stage.catalogue.chercher(image));
    return control;
  }
  MapView &shown() {
    if (widget == nullptr) {
      widget = std::make_unique<MapView>(view, context,
                                         Pointing{[this](double x, double y) {
                                                    pressed = {static_cast<int>(x), static_cast<int>(y)};
                                                    cursor = stage.screen.curseur();
                                                    return under;
                                                  },
                                                  [this](double, double) { return under; },
                                                  {}},
                                         nullptr);
      widget->setGeometry({{50, 60}, scale.rect(QRectF(0, 0, 100, 80)).size()});
      widget->show();
    }
    widget->sync_pictures();
    return *widget;
  }
  QColor at(int x, int y) { return shown().grab().toImage().pixelColor(x, y); }
  QRect damage() { return shown().last_damage().boundingRect(); }

  Stage stage{{{"mer", 120, 90, sea}, {"terre", 30, 30, land}, {"point", 6, 6, mark, true}}};
  Fenêtre window{"carte"};
  Contrôle &view = place(window, "Carte", Genre::vue, {});
  Contrôle &map = place(window, "image_région(0)", Genre::image, {0, 0, 120, 90}, &view);
  Scale scale;
  MapGuide guide;
  ViewContext context{window, stage.dispatcher, stage.pictures, stage.screen, scale, guide};
  std::unique_ptr<MapView> widget;
  Contrôle *under = nullptr;
  QPoint pressed;
  Point cursor;
};

TEST_F(MapViews, TheHigherPlanIsPaintedLast) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &low = picture("Pays(1)", "terre", 10, 10);
  picture("rond(1)", "point", 20, 20);
  EXPECT_EQ(at(5, 5), sea);
  EXPECT_EQ(at(12, 12), land);
  EXPECT_EQ(at(22, 22), mark);
  window.au_premier_plan(low);
  EXPECT_EQ(at(22, 22), land);
}

TEST_F(MapViews, WhereNoPictureLiesTheWindowsGroundIsSeen) {
  QPalette palette = shown().palette();
  palette.setColor(QPalette::Window, Qt::magenta);
  shown().setPalette(palette);
  Contrôle &only = picture("Pays(1)", "terre", 10, 10);
  poser_image(map, {});
  EXPECT_EQ(at(12, 12), land);
  EXPECT_EQ(at(50, 50), QColor(Qt::magenta));
  only.visible = false;
  EXPECT_EQ(at(12, 12), QColor(Qt::magenta));
}

TEST_F(MapViews, APictureKeepsWhatCanBeSeenThroughIt) {
  QImage glass(30, 30, QImage::Format_ARGB32);
  glass.fill(Qt::transparent);
  ASSERT_TRUE(glass.save(stage.folder.filePath("terre.png")));
  EXPECT_TRUE(stage.pictures.pixmap(stage.catalogue.chercher("terre"), Detail::single).hasAlphaChannel());
  QImage wall(120, 90, QImage::Format_RGB32);
  wall.fill(sea);
  ASSERT_TRUE(wall.save(stage.folder.filePath("mer.png")));
  EXPECT_FALSE(stage.pictures.pixmap(stage.catalogue.chercher("mer"), Detail::single).hasAlphaChannel())
      << "or each painting would mix";
}

TEST_F(MapViews, PicturesAreKeptInTheFormThatIsPaintedFastest) {
  for (const auto &[name, file, wanted] :
       {std::tuple("terre", QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied),
        {"mer", QImage::Format_Indexed8, QImage::Format_RGB32}}) {
    const Image image = stage.catalogue.chercher(name);
    QImage picture(image.largeur, image.hauteur, file);
    picture.setColorTable({land.rgb()});
    picture.fill(0);
    ASSERT_TRUE(picture.save(stage.folder.filePath(QString(name) + ".png")));
    EXPECT_EQ(stage.pictures.pixmap(image, Detail::single).toImage().format(), wanted) << name;
  }
}

TEST_F(MapViews, HiddenPicturesAndThoseWithoutImageAreNotPainted) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &low = picture("Pays(1)", "terre", 10, 10);
  picture("vide", "absente", 10, 10);
  low.visible = false;
  EXPECT_EQ(at(12, 12), sea);
}

TEST_F(MapViews, OnlyWhatChangedIsDamaged) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &low = picture("Pays(1)", "terre", 10, 10);
  Contrôle &high = picture("rond(1)", "point", 60, 50);
  shown();
  EXPECT_TRUE(damage().isNull()) << "nothing changed";
  high.visible = false;
  EXPECT_EQ(damage(), QRect(60, 50, 6, 6));
  high.visible = true;
  EXPECT_EQ(damage(), QRect(60, 50, 6, 6));
  low.gauche = 15;
  EXPECT_EQ(damage(), QRect(10, 10, 35, 30));
  poser_image(low, stage.catalogue.chercher("point"));
  EXPECT_EQ(damage(), QRect(15, 10, 30, 30));
}

TEST_F(MapViews, ARestackThatChangesNoOrderDamagesNothing) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &low = picture("Pays(1)", "terre", 10, 10);
  Contrôle &high = picture("rond(1)", "point", 20, 20);
  shown();
  for (Contrôle *control : {&map, &low, &high}) window.au_premier_plan(*control);
  EXPECT_TRUE(damage().isNull());
  window.au_premier_plan(low);
  EXPECT_TRUE(damage().contains(QRect(20, 20, 6, 6)));
  EXPECT_EQ(at(22, 22), land);
}

TEST_F(MapViews, APictureMayGiveWayToAnotherInOneEvent) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &gone = picture("Pays(1)", "terre", 10, 10);
  shown();
  window.retirer(gone);
  picture("rond(1)", "point", 60, 50);
  EXPECT_EQ(damage(), QRect(10, 10, 30, 30) | QRect(60, 50, 6, 6));
  window.oublier_retirés();
  EXPECT_EQ(at(12, 12), sea);
  EXPECT_EQ(at(62, 52), mark);
}

TEST_F(MapViews, PicturesOutsideTheViewportCostNothing) {
  Contrôle &far = picture("Pays(1)", "terre", 200, 200);
  shown();
  far.gauche = 220;
  EXPECT_TRUE(damage().isNull());
}

/// What is painted of a widget that has been painted before.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget &widget) {
    QApplication::processEvents();
    widget.installEventFilter(this);
  }
  /// Since it was last asked.
  QRegion painted() {
    QApplication::processEvents();
    return std::exchange(painted_, {});
  }

 private:
  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent *>(event)->region();
    return false;
  }
  QRegion painted_;
};

TEST_F(MapViews, APaintCoversTheDamageAlone) {
  poser_image(map, stage.catalogue.chercher("mer"));
  Contrôle &high = picture("rond(1)", "point", 60, 50);
  PaintWatch watch(shown());
  high.visible = false;
  shown();
  EXPECT_EQ(watch.painted().boundingRect(), QRect(60, 50, 6, 6));
}

TEST_F(MapViews, TheFinePictureHasTwiceTheResolution) {
  const Image point = stage.catalogue.chercher("point");
  EXPECT_EQ(stage.pictures.pixmap(point, Detail::single).size(), QSize(6, 6));
  EXPECT_EQ(stage.pictures.pixmap(point, Detail::doubled).size(), QSize(12, 12));
  EXPECT_EQ(stage.pictures.pixmap(point, Detail::doubled).toImage().pixelColor(1, 1), QColor(55, 255, 255));
}

TEST_F(MapViews, APictureWithoutAFineOneIsEnlarged) {
  const Image coarse = stage.catalogue.chercher("terre");
  EXPECT_EQ(stage.pictures.pixmap(coarse, Detail::doubled).size(), QSize(60, 60));
}

TEST_F(MapViews, AScaledPictureComesFromTheFineOneUnlessItHasItsOwnSize) {
  const Image point = stage.catalogue.chercher("point");
  const auto colour = [&](QSize size, double ratio) {
    return stage.pictures.scaled(point, size, ratio).toImage().pixelColor(1, 1);
  };
  EXPECT_EQ(colour({6, 6}, 1), mark);
  EXPECT_EQ(colour({6, 6}, 2), QColor(55, 255, 255));
  EXPECT_EQ(colour({9, 9}, 1), QColor(55, 255, 255));
}

TEST_F(MapViews, TheFinePicturesAreTakenForEveryScaleButTheirOwn) {
  EXPECT_EQ(detail_for(1), Detail::single);
  for (const double ratio : {0.75, 1.01, 1.25, 1.5, 2.0, 3.0}) EXPECT_EQ(detail_for(ratio), Detail::doubled);
}

TEST_F(MapViews, APressReachesThePictureWithTheCursorWhereItWas) {
  int clicks = 0;
  map.clic = [&] { ++clicks; };
  under = &map;
  QTest::mouseClick(&shown(), Qt::LeftButton, {}, QPoint(30, 40));
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(pressed, QPoint(30, 40));
  const QPoint on_screen = shown().mapToGlobal(QPoint(30, 40));
  EXPECT_EQ(cursor, (Point{on_screen.x(), on_screen.y()}));
  QTest::mouseClick(&shown(), Qt::RightButton, {}, QPoint(30, 40));
  EXPECT_EQ(clicks, 1);
  under = nullptr;
  QTest::mouseClick(&shown(), Qt::LeftButton, {}, QPoint(30, 40));
  EXPECT_EQ(clicks, 1);
}

TEST_F(MapViews, TheSecondPressOfADoubleClickIsNoClickOnTheMap) {
  int clicks = 0;
  map.clic = [&] { ++clicks; };
  under = &map;
  QTest::mouseClick(&shown(), Qt::LeftButton, {}, QPoint(30, 40));
  QTest::mouseDClick(&shown(), Qt::LeftButton, {}, QPoint(30, 40));
  EXPECT_EQ(clicks, 1);
}

TEST_F(MapViews, NothingScrollsWhileAProcedureIsAtWork) {
  Contrôle &across = place(window, "barre_h", Genre::barre, {}),
           &down = place(window, "barre_v", Genre::barre, {});
  fixer_bornes(across, 0, 100);
  fixer_bornes(down, 0, 100);
  MapView scrolled(view, context, Pointing{{}, {}, {&map, &across, &down}}, nullptr);
  const auto turn_wheel = [&] {
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&scrolled, &event);
    return down.valeur;
  };
  stage.dispatcher.run([&] { EXPECT_EQ(turn_wheel(), 0); });
  EXPECT_EQ(turn_wheel(), 40);
  down.visible = false;
  EXPECT_EQ(turn_wheel(), 40) << "where there is no bar the map has no other place";
}

TEST_F(MapViews, AtAnotherScaleAPressIsToldInPixelsOfTheData) {
  scale = Scale(1.5);
  map.clic = [] {};
  under = &map;
  QTest::mouseClick(&shown(), Qt::LeftButton, {}, QPoint(45, 60));
  EXPECT_EQ(pressed, QPoint(30, 40));
}

TEST_F(MapViews, APictureThatComesWhileTheMapIsResizedIsSeen) {
  poser_image(map, stage.catalogue.chercher("mer"));
  scale = Scale(1.5);
  EXPECT_EQ(at(30, 30), sea);
  scale = Scale(1.7);
  widget->resize(scale.rect(QRectF(0, 0, 100, 80)).size());
  EXPECT_EQ(at(30, 30), sea);
  picture("terre", "terre", 10, 10);
  EXPECT_EQ(at(30, 30), land);
}

/// Presses keys on a map of 120 by 90 of which 100 by 80 are seen.
class MapByKeys : public MapViews {
 protected:
  MapByKeys() {
    map.clic = [] {};
    under = &map;
    shown().setFocus();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&shown(), key, held); }
  void give_focus(bool given, Qt::FocusReason reason) {
    QFocusEvent event(given ? QEvent::FocusIn : QEvent::FocusOut, reason);
    QApplication::sendEvent(&shown(), &event);
  }
  /// Where Enter clicks.
  QPoint place() {
    press(Qt::Key_Return);
    return pressed;
  }
};

TEST_F(MapByKeys, TheFirstEnterShowsTheCursorAndClicksNothing) {
  pressed = {-1, -1};
  press(Qt::Key_Return);
  EXPECT_EQ(pressed, QPoint(-1, -1));
  EXPECT_EQ(place(), QPoint(0, 0));
}

TEST_F(MapByKeys, WhoComesBackFromAnotherWindowClicksWhereTheCursorWas) {
  press(Qt::Key_Right, Qt::ShiftModifier);
  const QImage with_cursor = shown().grab().toImage();
  give_focus(false, Qt::ActiveWindowFocusReason);
  EXPECT_NE(shown().grab().toImage(), with_cursor);
  give_focus(true, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(shown().grab().toImage(), with_cursor);
  EXPECT_EQ(place(), QPoint(10, 0));
}

TEST_F(MapByKeys, AnEnterMeantForAButtonThatHasGoneOnlyShowsTheCursor) {
  press(Qt::Key_Right, Qt::ShiftModifier);
  give_focus(false, Qt::TabFocusReason);
  give_focus(true, Qt::OtherFocusReason);
  pressed = {-1, -1};
  EXPECT_EQ(place(), QPoint(-1, -1));
  EXPECT_EQ(place(), QPoint(10, 0));
}

TEST_F(MapByKeys, AnEnterHeldDownClicksOnce) {
  press(Qt::Key_Right, Qt::ShiftModifier);
  pressed = {-1, -1};
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&shown(), &held);
  EXPECT_EQ(pressed, QPoint(-1, -1));
}

TEST_F(MapByKeys, AnArrowMovesByOnePixelOfTheDataAndByTenWithShift) {
  press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_Right);
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_Up);
  press(Qt::Key_Left);
  EXPECT_EQ(place(), QPoint(10, 9));
}

TEST_F(MapByKeys, HomeEndAndThePageKeysGoToTheEdges) {
  press(Qt::Key_End);
  press(Qt::Key_PageDown);
  EXPECT_EQ(place(), QPoint(99, 79));
  press(Qt::Key_Home);
  EXPECT_EQ(place(), QPoint(0, 79));
  press(Qt::Key_PageUp);
  EXPECT_EQ(place(), QPoint(0, 0));
}

TEST_F(MapByKeys, NoArrowLeavesTheMap) {
  press(Qt::Key_Left);
  press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(place(), QPoint(0, 0));
}

TEST_F(MapByKeys, ControlAndAnArrowGoToTheNextThingInThatDirection) {
  guide.targets = [] { return std::vector<Point>{{60, 4}, {30, 2}, {12, 11}, {5, 50}}; };
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(place(), QPoint(30, 2)) << "straight ahead before what is nearer but aslant";
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(place(), QPoint(60, 4));
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(place(), QPoint(60, 4)) << "there is no further one";
  press(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(place(), QPoint(60, 4)) << "what lies more to the side is not below";
}

TEST_F(MapByKeys, ControlAndThePageKeysReadOnAndBackRowByRow) {
  guide.targets = [] { return std::vector<Point>{{60, 4}, {12, 11}, {30, 4}, {5, 50}}; };
  for (const QPoint next : {QPoint(30, 4), QPoint(60, 4), QPoint(12, 11), QPoint(5, 50), QPoint(5, 50)}) {
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(place(), next);
  }
  for (const QPoint next : {QPoint(12, 11), QPoint(60, 4), QPoint(30, 4), QPoint(30, 4)}) {
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(place(), next);
  }
}

TEST_F(MapByKeys, WhereNothingIsShownThereIsNothingToGoTo) {
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(place(), QPoint(0, 0));
}

TEST_F(MapByKeys, TheCursorIsSeenOnEveryGroundAndGoesWithTheMouse) {
  for (const QColor &ground : {QColor(Qt::black), QColor(Qt::white), sea, land}) {
    QPixmap pixmap(1, 1);
    poser_image(map, {});
    QPalette palette = shown().palette();
    palette.setColor(QPalette::Window, ground);
    shown().setPalette(palette);
    const QImage before = shown().grab().toImage();
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NE(shown().grab().toImage(), before) << ground.name().toStdString();
    QTest::mouseClick(&shown(), Qt::LeftButton);
    EXPECT_EQ(shown().grab().toImage(), before) << ground.name().toStdString();
  }
}

TEST(MapCursor, IsDrawnWithoutATraceOnThePainter) {
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(land);
  QPainter painter(&image);
  const QPen pen = painter.pen();
  draw_cursor(painter, {20, 20}, 1);
  std::set<QRgb> colours;
  for (int i = 0; i < image.width() * image.height(); ++i)
    colours.insert(image.pixel(i % image.width(), i / image.width()));
  EXPECT_GT(colours.size(), 3U) << "its lines are smooth";
  for (const QPoint tick : {QPoint(8, 20), QPoint(32, 20), QPoint(20, 8), QPoint(20, 32)})
    EXPECT_LT(image.pixelColor(tick).lightness(), 60) << "a line on each side";
  EXPECT_LT(image.pixelColor(26, 26).lightness(), 100) << "of a ring";
  EXPECT_EQ(painter.pen(), pen);
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST_F(MapByKeys, ThePlacesThatTheCursorComesToAndLeavesArePainted) {
  const QPoint left(30, 40), right(70, 40);
  const auto move = [&](Qt::Key key, int steps) {
    for (int i = 0; i < steps; ++i) press(key, Qt::ShiftModifier);
  };
  move(Qt::Key_Right, 3);
  move(Qt::Key_Down, 4);
  PaintWatch watch(shown());
  watch.painted();
  move(Qt::Key_Right, 4);
  const QRegion moved = watch.painted();
  EXPECT_TRUE(moved.contains(left) && moved.contains(right));
  for (const bool comes : {false, true}) {
    give_focus(comes, Qt::ActiveWindowFocusReason);
    EXPECT_TRUE(watch.painted().contains(right));
  }
  QTest::mouseClick(&shown(), Qt::LeftButton);
  EXPECT_TRUE(watch.painted().contains(right));
  QTest::mouseClick(&shown(), Qt::LeftButton);
  EXPECT_TRUE(watch.painted().isEmpty()) << "it has gone";
}

TEST_F(MapByKeys, TheToolTipUnderTheCursorIsShown) {
  map.infobulle = "Saulonde";
  press(Qt::Key_Down);
  EXPECT_EQ(QToolTip::text(), "Saulonde");
  QToolTip::hideText();
}

/// What the map tells a listener: where its cursor is, and by three keys more.
class MapByEar : protected Listener, public MapByKeys {
 protected:
  MapByEar() {
    guide.tell = [](Point from, Point to) { return "de " + in_words(from) + " à " + in_words(to); };
    guide.locate = [](Point here) { return "situé " + in_words(here); };
    guide.sweep = [](Point here) { return "autour de " + in_words(here); };
    guide.repeat = [] { return std::string("encore"); };
  }
  static std::string in_words(Point place) { return std::to_string(place.x) + "," + std::to_string(place.y); }
  /// The one item of the picture; null before anything is told.
  QAccessibleInterface *item() { return QAccessible::queryAccessibleInterface(&shown())->child(0); }
  std::string told() { return item() == nullptr ? "" : item()->text(QAccessible::Name).toStdString(); }
};

TEST_F(MapByEar, EachPlaceIsAnItemOfThePictureNamedByTheWayToIt) {
  EXPECT_EQ(item(), nullptr);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&shown())->childCount(), 0);
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(told(), "de 0,0 à 10,0");
  press(Qt::Key_Down);
  EXPECT_EQ(told(), "de 10,0 à 10,1");
  for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::Focus})
    EXPECT_THAT(heard(kind), testing::ElementsAre("de 0,0 à 10,0", "de 10,0 à 10,1"));
  ASSERT_NE(item(), nullptr);
  EXPECT_EQ(item()->text(QAccessible::Description), "");
  EXPECT_TRUE(item()->isValid());
  EXPECT_EQ(item()->role(), QAccessible::StaticText);
  EXPECT_TRUE(item()->state().focusable);
  EXPECT_TRUE(item()->rect().contains(shown().mapToGlobal(QPoint(10, 1))));
  EXPECT_EQ(item()->childCount(), 0);
  QAccessibleInterface *picture = item()->parent();
  ASSERT_EQ(picture, QAccessible::queryAccessibleInterface(&shown()));
  EXPECT_EQ(picture->childCount(), 1);
  EXPECT_EQ(picture->child(1), nullptr);
  EXPECT_EQ(picture->indexOfChild(item()), 0);
  EXPECT_EQ(picture->indexOfChild(picture), -1);
}

TEST_F(MapByEar, TheItemHasTheFocusThatThePictureHas) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown()));
  shown().setFocus();
  press(Qt::Key_Right);
  EXPECT_TRUE(item()->state().focused);
  const QAccessibleInterface *before = item();
  press(Qt::Key_Right);
  EXPECT_TRUE(item()->state().focused);
  EXPECT_FALSE(before->state().focused) << "it was another's turn";
  shown().clearFocus();
  EXPECT_FALSE(item()->state().focused);
}

TEST_F(MapByEar, ThreeKeysTellMoreOfThePlaceAndOfTheQuestion) {
  press(Qt::Key_Right);
  const std::pair<Qt::Key, const char *> answers[] = {
      {Qt::Key_O, "situé 1,0"}, {Qt::Key_T, "autour de 1,0"}, {Qt::Key_R, "encore"}};
  for (const auto &[key, answer] : answers) {
    press(key);
    EXPECT_EQ(told(), answer);
    press(Qt::Key_Z);
    EXPECT_EQ(told(), answer) << "another key tells nothing";
  }
  press(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(told(), "encore") << "that is another key";
}

TEST_F(MapByEar, WhereNobodyListensNothingIsTold) {
  leave();
  guide.tell = [](Point, Point) -> std::string { throw std::logic_error("asked"); };
  guide.locate = [](Point) -> std::string { throw std::logic_error("asked"); };
  EXPECT_NO_THROW(press(Qt::Key_Right));
  EXPECT_NO_THROW(press(Qt::Key_O));
  EXPECT_EQ(item(), nullptr);
}

TEST_F(MapByEar, AMapWithoutAGuideTellsNothing) {
  guide = {};
  EXPECT_NO_THROW(press(Qt::Key_Right));
  EXPECT_NO_THROW(press(Qt::Key_O));
  EXPECT_EQ(item(), nullptr);
}

/// The largest difference of a channel between two pictures of one size.
int furthest(const QImage &a, const QImage &b) {
  int most = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QColor p = a.pixelColor(x, y), q = b.pixelColor(x, y);
      most = std::max({most, std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                       std::abs(p.blue() - q.blue())});
    }
  return most;
}

class ScaledMapViews : public MapViews, public testing::WithParamInterface<double> {
 protected:
  ScaledMapViews() {
    scale = Scale(GetParam());
    poser_image(map, stage.catalogue.chercher("mer"));
  }
  /// The colour in the middle of a pixel of the data.
  QColor at_logical(int x, int y) { return at(scale.length(x + 0.5), scale.length(y + 0.5)); }
};

TEST_P(ScaledMapViews, EachPictureIsWhereTheDataHasIt) {
  EXPECT_EQ(at_logical(20, 10), sea);
  EXPECT_EQ(at_logical(95, 75), sea);
  picture("tache", "terre", 40, 40);
  EXPECT_EQ(at_logical(43, 43), land);
  EXPECT_EQ(at_logical(66, 66), land);
  EXPECT_EQ(at_logical(36, 43), sea);
  EXPECT_EQ(at_logical(74, 66), sea);
}

TEST_P(ScaledMapViews, TwoPicturesThatTouchShowNoSeam) {
  for (const int x : {20, 50}) picture("tache" + std::to_string(x), "terre", x, 20);
  const QImage image = shown().grab().toImage();
  for (int x = scale.length(25); x < scale.length(75); ++x)
    EXPECT_EQ(image.pixelColor(x, scale.length(30)), land) << "column " << x;
}

TEST_P(ScaledMapViews, WhatHasGoneLeavesNoTrace) {
  const QImage before = shown().grab().toImage();
  Contrôle &spot = picture("tache", "terre", 31, 27);
  EXPECT_NE(shown().grab().toImage(), before);
  spot.visible = false;
  EXPECT_EQ(shown().grab().toImage(), before);
}

TEST_P(ScaledMapViews, WhatIsPaintedBitByBitIsWhatIsPaintedAtOnce) {
  for (const int x : {3, 17, 41, 62}) {
    picture("tache" + std::to_string(x), "terre", x, x / 2);
    shown().grab();
  }
  const QImage bit_by_bit = shown().grab().toImage();
  widget.reset();
  EXPECT_LE(furthest(shown().grab().toImage(), bit_by_bit), 2) << "more than an eye can tell";
}

INSTANTIATE_TEST_SUITE_P(EveryScale, ScaledMapViews, testing::Values(0.75, 1.0, 1.25, 1.37, 1.5, 2.0, 3.0));

TEST_F(MapViews, ADotShowsItsToolTip) {
  Contrôle &dot = picture("RondPref(1)", "point", 20, 20);
  dot.infobulle = "Vaudreuse";
  under = &dot;
  QHelpEvent help(QEvent::ToolTip, QPoint(22, 22), shown().mapToGlobal(QPoint(22, 22)));
  QApplication::sendEvent(&shown(), &help);
  EXPECT_EQ(QToolTip::text(), "Vaudreuse");
}

TEST_F(MapViews, AToolTipGoesWithTheMouseFromItsPictureAndWhereThereIsNone) {
  Contrôle &dot = picture("RondPref(1)", "point", 20, 20);
  dot.infobulle = "Vaudreuse";
  const auto rest_at = [&](QPoint place) {
    QHelpEvent help(QEvent::ToolTip, place, shown().mapToGlobal(place));
    QApplication::sendEvent(&shown(), &help);
  };
  const auto move_to = [&](QPoint place) {
    QMouseEvent move(QEvent::MouseMove, QPointF(place), shown().mapToGlobal(QPointF(place)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&shown(), &move);
  };
  const auto goes = [] { return QTest::qWaitFor([] { return !QToolTip::isVisible(); }); };
  under = &dot;
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown())) << "which hides a tool tip by itself";
  rest_at({22, 22});
  move_to({24, 24});
  QApplication::processEvents();
  EXPECT_TRUE(QToolTip::isVisible());
  move_to({40, 24});
  EXPECT_TRUE(goes());
  rest_at({22, 22});
  EXPECT_TRUE(QToolTip::isVisible());
  under = nullptr;
  rest_at({22, 22});
  EXPECT_TRUE(goes());
}

}  // namespace
}  // namespace ardane
