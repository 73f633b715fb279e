#include "platform/display/card_library.h"

#include <array>
#include <memory>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "platform/display/form_surface.h"
#include "platform/display/pictures.h"

namespace platform {

namespace {

constexpr int kCardWidth = 71;
constexpr int kCardHeight = 96;
// The build names the deck (the cache variable DOVRIN_CARD_DECK).
constexpr char kStandardDeck[] = DOVRIN_CARD_DECK;

// The library's own state, as a loaded library keeps it: the deck read at
// cdtInit, and the faces of one pixel ratio, each drawn at its first use, so
// that a start costs no faces and a change of zoom draws only those shown.
struct CardCache {
    QString deckFile = QString::fromLatin1(kStandardDeck);
    std::unique_ptr<QSvgRenderer> deck;
    qreal ratio = 0;
    std::array<QImage, 52> faces;
};

CardCache& Cache() {
    static CardCache cache;
    return cache;
}

// A face for a card the deck lacks: white, crossed out in red, named.
void PaintPlaceholder(QPainter& painter, const QString& elementId) {
    const QRectF card(0.5, 0.5, kCardWidth - 1, kCardHeight - 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::darkGray, 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(card, 3, 3);
    painter.setPen(QPen(Qt::red, 3));
    painter.drawLine(QPointF(8, 8), QPointF(kCardWidth - 8, kCardHeight - 8));
    painter.drawLine(QPointF(kCardWidth - 8, 8), QPointF(8, kCardHeight - 8));
    QFont font = painter.font();
    font.setPixelSize(9);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(card.adjusted(2, 2, -2, -2), Qt::AlignHCenter | Qt::AlignTop, elementId);
}

QImage RenderFace(QSvgRenderer& deck, int card, qreal ratio) {
    const QString id = CardElementId(card);
    QImage face = FilledImage(QSize(kCardWidth, kCardHeight), ratio, Qt::transparent,
                              QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&face);
    if (deck.elementExists(id))
        deck.render(&painter, id, QRectF(0, 0, kCardWidth, kCardHeight));
    else
        PaintPlaceholder(painter, id);
    painter.end();
    return face;
}

// The face of a card for a surface of this pixel ratio; none once the
// library has let go of its deck.
const QImage* Face(int card, qreal ratio) {
    CardCache& cache = Cache();
    if (!cache.deck) return nullptr;
    if (ratio != cache.ratio) {
        cache.faces = {};
        cache.ratio = ratio;
    }
    QImage& face = cache.faces[card];
    if (face.isNull()) face = RenderFace(*cache.deck, card, ratio);
    return &face;
}

}  // namespace

QString CardElementId(int card) {
    static const char* const kRanks[13] = {"1", "2", "3", "4",  "5",     "6",    "7",
                                           "8", "9", "10", "jack", "queen", "king"};
    static const char* const kSuits[4] = {"club", "diamond", "heart", "spade"};
    return QStringLiteral("%1_%2").arg(kRanks[card / 4], kSuits[card % 4]);
}

void SetCardDeckFile(const QString& path) {
    Cache().deckFile = path.isEmpty() ? QString::fromLatin1(kStandardDeck) : path;
}

// The deck is read here, once: a deck gone since leaves the faces drawn.
int cdtInit(std::int32_t& width, std::int32_t& height) {
    CardCache& cache = Cache();
    cdtTerm();
    auto deck = std::make_unique<QSvgRenderer>(cache.deckFile);
    if (!deck->isValid()) return 0;
    cache.deck = std::move(deck);
    width = kCardWidth;
    height = kCardHeight;
    return 1;
}

// The drawing names the card, not its face: it is drawn again after a change
// of zoom with the face of the new ratio.
int cdtDraw(FormSurface& hdc, int x, int y, int card, int mode, std::int32_t /*colour*/) {
    if (!Cache().deck || mode != 0 || card < 0 || card > 51) return 0;
    hdc.Draw(QRect(x, y, kCardWidth, kCardHeight), [x, y, card](QPainter& painter) {
        if (const QImage* face = Face(card, painter.device()->devicePixelRatio())) painter.drawImage(x, y, *face);
    });
    return 1;
}

void cdtTerm() {
    CardCache& cache = Cache();
    cache.deck.reset();
    cache.faces = {};
    cache.ratio = 0;
}

}  // namespace platform
