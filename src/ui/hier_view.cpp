// Dragging, keys, and the idle time of the explorer.
#include "ui/hier_view.h"

#include <QtWidgets>
#include <algorithm>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/tree_model.h"

namespace quillon::ui {

using navigation::cExplorer;

namespace {

constexpr std::chrono::milliseconds kLineScrolls(80);
constexpr int kTwipsAPixel = 15;
constexpr int kPicture = 24;
constexpr QPoint kGhostFromMouse(14, 18);
constexpr int kWidestGhost = 320;

// Adds space between the lines, and a frame around the drop target.
class TreeLines : public QStyledItemDelegate {
public:
    explicit TreeLines(HierView* view) : QStyledItemDelegate(view), view_(*view) {}
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* model = static_cast<const TreeModel*>(view_.model());
        if (!model->IsDropHighlight(index)) return;
        QColor fill = option.palette.color(QPalette::Highlight);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(fill, 1.5));
        fill.setAlpha(48);
        painter->setBrush(fill);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 3, 3);
        painter->restore();
    }

private:
    HierView& view_;
};

QCursor Picture(const QString& name) {
    return QCursor(Icon(name).pixmap(kPicture, kPicture), 2, 2);
}

}  // namespace

HierView::HierView(cExplorer& explorer, QWidget* parent)
    : QTreeView(parent),
      explorer_(explorer),
      dropCursor_(Picture("dragdrop")),
      noDropCursor_(Picture("nodrop")) {
    setObjectName("HierView");
    setAccessibleName(tr("Hierarchy"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().height() * 4 / 5);  // names are ten levels deep
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);  // as wide as the visible rows
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new TreeLines(this));
    ghost_ = new QLabel(this);
    ghost_->setObjectName("DragGhost");
    ghost_->setAttribute(Qt::WA_TransparentForMouseEvents);
    ghost_->hide();
    treeTimer_.setInterval(kLineScrolls);
    Connect(&treeTimer_, &QTimer::timeout, this, [this] { explorer_.TreeTimer(); });
    explorer_.RunTreeTimer = [this](bool run) { run ? treeTimer_.start() : treeTimer_.stop(); };
    explorer_.ScrollTree = [this](int lines) { ScrollLine(lines); };
    idleTimer_.setInterval(0);
    Connect(&idleTimer_, &QTimer::timeout, this, [this] {
        if (!explorer_.Continue()) idleTimer_.stop();
    });
    explorer_.StartIdleTimer = [this] { idleTimer_.start(); };
}

HierView::~HierView() {
    explorer_.CancelDrag();
    explorer_.RunTreeTimer = nullptr;
    explorer_.ScrollTree = nullptr;
    explorer_.StartIdleTimer = nullptr;
}

void HierView::SetOpen(const QModelIndex& index, bool open) {
    scheduleDelayedItemsLayout();
    setExpanded(index, open);
}

void HierView::Reveal(const QModelIndex& index) {
    scrollTo(index);
    const int left = visualRect(index).left() - indentation();
    const int hidden = left + indentation() + sizeHintForIndex(index).width() - viewport()->width();
    QScrollBar* bar = horizontalScrollBar();
    if (left < 0) {
        bar->setValue(bar->value() + left);
    } else if (hidden > 0) {
        bar->setValue(bar->value() + std::min(left, hidden));
    }
}

void HierView::SetTreeModel(TreeModel* model) {
    model_ = model;
    setModel(model);
    Connect(model_, &TreeModel::HighlightMoved, viewport(), qOverload<>(&QWidget::update));
}

// The press selects the node and may open a question; the node selected afterwards is dragged.
void HierView::mousePressEvent(QMouseEvent* event) {
    if (explorer_.IsDragging()) return EndDrag();
    QTreeView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->pos());
    const bool onName = visualRect(index).contains(event->pos());
    const bool mayDrag = event->button() == Qt::LeftButton && onName && index == currentIndex();
    explorer_.DragMouseDown(mayDrag ? model_->NodeOf(index) : nullptr);
    pressedAt_ = event->pos();
}

// While the button is held, the mouse drags a node and never selects.
void HierView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        if (explorer_.IsDragging()) EndDrag();
        explorer_.DragMouseMove(false);
        return QTreeView::mouseMoveEvent(event);
    }
    const bool isFar = (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (isFar && explorer_.DragMouseMove(true)) BeginDrag();
    if (explorer_.IsDragging()) DragTo(event->pos());
}

void HierView::mouseReleaseEvent(QMouseEvent* event) {
    const bool isDrop = explorer_.IsDragging() && event->button() == Qt::LeftButton;
    if (isDrop) {
        ShowNoDrag();
        return explorer_.Drop();
    }
    explorer_.DragMouseDown(nullptr);
    QTreeView::mouseReleaseEvent(event);
}

void HierView::keyPressEvent(QKeyEvent* event) {
    if (explorer_.IsDragging()) {
        if (event->key() == Qt::Key_Escape) EndDrag();
        return;
    }
    // The base class would expand everything below.
    if (event->key() == Qt::Key_Asterisk && currentIndex().isValid())
        return explorer_.ExpandBelow(model_->NodeOf(currentIndex()));
    QTreeView::keyPressEvent(event);
}

void HierView::focusOutEvent(QFocusEvent* event) {
    EndDrag();
    QTreeView::focusOutEvent(event);
}

void HierView::hideEvent(QHideEvent* event) {
    EndDrag();
    QTreeView::hideEvent(event);
}

void HierView::BeginDrag() {
    ghost_->setPixmap(GhostOf(model_->IndexOf(explorer_.DragNode())));
    ghost_->adjustSize();
    ghost_->show();
    ghost_->raise();
    viewport()->setMouseTracking(true);  // to notice a release outside the view
}

void HierView::DragTo(const QPoint& at) {
    lastAt_ = at;
    const QModelIndex under = viewport()->rect().contains(at) ? indexAt(at) : QModelIndex();
    explorer_.DragOver(at.x() * kTwipsAPixel, at.y() * kTwipsAPixel, viewport()->height() * kTwipsAPixel,
                       model_->NodeOf(under));
    ShowPicture();
}

void HierView::ShowPicture() {
    const bool may = explorer_.Picture() == cExplorer::DropPicture::DragDrop;
    viewport()->setCursor(may ? dropCursor_ : noDropCursor_);
    const QPoint at = viewport()->mapTo(this, lastAt_) + kGhostFromMouse;
    ghost_->move(std::max(0, std::min(at.x(), viewport()->width() - ghost_->width())), at.y());
}

void HierView::EndDrag() {
    if (!explorer_.IsDragging()) return;
    explorer_.CancelDrag();
    ShowNoDrag();
}

void HierView::ShowNoDrag() {
    setState(NoState);
    ghost_->hide();
    viewport()->unsetCursor();
    viewport()->setMouseTracking(false);
}

// The node under the mouse has changed.
void HierView::ScrollLine(int lines) {
    verticalScrollBar()->triggerAction(lines < 0 ? QAbstractSlider::SliderSingleStepSub
                                                 : QAbstractSlider::SliderSingleStepAdd);
    DragTo(lastAt_);
}

// The framed picture of the name in its row.
QPixmap HierView::GhostOf(const QModelIndex& index) const {
    const QString text = fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, kWidestGhost);
    const QSize size(fontMetrics().horizontalAdvance(text) + 16, fontMetrics().height() + 8);
    QPixmap slip(size * devicePixelRatioF());
    slip.setDevicePixelRatio(devicePixelRatioF());
    slip.fill(Qt::transparent);
    QPainter painter(&slip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(0.85);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)), 4, 4);
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(font());
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, text);
    return slip;
}

}  // namespace quillon::ui
