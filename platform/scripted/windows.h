// SPDX-License-Identifier: GPL-3.0-or-later
// A window system without a screen: it tells what happens, one event a line, and answers message
// boxes at once. What a person does with a modal window is for the one who derives from it.
//
// Lines: `fenetre FMenu affichee` (`cachee`, `dechargee`), `FMenu.AffMot(0).Caption = "A##"`,
// `pointeur 11`, `message critique "titre" "texte"`, `bip`; and those of the other recorders.
#pragma once

#include "platform/scripted/time.h"

namespace grimoval::scripted {

using Sink = std::function<void(const std::string &line)>;

class Windows : public WindowSystem {
public:
    Windows(Files &files, Sink sink) : files_(files), sink_(std::move(sink)) {}

    int width = 15360, height = 11520; // twips
    TimeWheel *wheel = nullptr;        // is told of what starts, stops and goes

    int screenWidth() override { return width; }
    int screenHeight() override { return height; }
    void loaded(Form & /*form*/) override {}
    void shown(Form &form, Form *opener) override;
    void hidden(Form &form) override;
    void unloaded(Form &form) override;
    void changed(Element &element, PropertyBase &property) override;
    void focusMoved(Control & /*control*/) override {}
    void processEvents() override {}
    void message(const Message &message) override;
    void beep() override { sink_("bip"); }
    // Without a decoder a picture is told by its first bytes (JPEG, BMP, PNG).
    void checkPicture(const Texte &path) override;

private:
    Files &files_;
    Sink sink_;
};

} // namespace grimoval::scripted
