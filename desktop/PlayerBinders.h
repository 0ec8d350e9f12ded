// The binders of the player's own controls: pictured buttons, toggles, what stands on its scale, the list of drives.
#pragma once

#include "desktop/FittedButton.h"
#include "desktop/SimpleBinders.h"
#include "desktop/WidgetEvents.h"
#include "view/FolderControls.h"
#include "view/ScaleControls.h"

#include <QMouseEvent>

namespace velluto {

// A button with a picture, drawn as crisp as the screen is, or a toggle whose colour says that it is on.
class PictureButton : public FittedButton {
public:
    PictureButton(Glyph glyph, QWidget *parent) : FittedButton(parent), glyph_(glyph) {}
    // Lit in a colour; an invalid one puts it out.
    void SetLamp(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawPicture(QPainter &painter) const;

    Glyph glyph_;
    QColor lamp_;
};

class ToggleBinder : public ButtonBinder {
public:
    ToggleBinder(Button &button, EventGate &gate, PictureButton *drawn);

protected:
    void Show(Aspect aspect) override;

private:
    Button &toggle_;
    PictureButton *drawn_;
};

// A hand on the marker draws its slider along.
class MarkerBinder : public Binder {
public:
    MarkerBinder(Marker &marker, EventGate &gate, QWidget *parent);
    ~MarkerBinder() override;

protected:
    void Show(Aspect aspect) override;

private:
    bool Look(QEvent &event);
    void Take(const QMouseEvent &event);
    void DragTo(const QMouseEvent &event);
    void LetGo();

    Marker &marker_;
    WidgetEvents *events_; // its widget's
    bool held_ = false;
    double takenAt_ = 0; // logical pixels across the screen
    int takenValue_ = 0; // of the slider
};

class ScaleLineBinder : public Binder {
public:
    ScaleLineBinder(Line &line, EventGate &gate, QWidget *parent);

protected:
    void Show(Aspect aspect) override;

private:
    Line &line_;
    QWidget *drawn_;
};

class DriveBinder : public Binder {
public:
    DriveBinder(DriveList &drives, EventGate &gate, QComboBox *drawn);

protected:
    void Show(Aspect aspect) override;

private:
    DriveList &drives_;
    QComboBox *drawn_;
    WidgetEvents *events_; // its widget's
};

} // namespace velluto
