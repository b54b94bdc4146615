// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the program on scripted services, with the folders of an installation: games start
// at once, or pass through the windows as a child does.
#pragma once

#include "shell/MAINGRIM.h"
#include "support/world.h"
#include "tools/bases/catalogue.h"

namespace grimoval::test {

// What a game begins with where no window asks for it.
struct Start {
    int mode = 1;
    std::vector<Texte> words = {u"AMI"};
    int errors = 6;
    bool limited = false;
    int seconds = 20;
    // Family and first name of player 1, then of player 2.
    std::array<Texte, 4> names = {u"DURAND", u"MARIE", u"PETIT", u"LÉO"};
};

// One theme of an installation.
struct Base {
    Texte file; // stem
    Texte title;
    std::vector<Texte> words;
    Texte image = {};
};

// Records as the files hold them.
std::string wordRecords(const std::vector<Texte> &words);
std::string baseRecord(int number, int words, const Texte &file, const Texte &title = u"Titre",
                       const Texte &image = {}, int active = 1);

struct Game : World {
    // The strings are set as the start-up sets them, the sound is on, FMenu on the screen. MASK,
    // SONS and IMAGES are there and empty, and so is the per-user folder, without settings.
    Game() : Game(true) {}
    // The same, optionally with no folder on the disk.
    explicit Game(bool folders);

    Globales g{services};
    FenetresDuJeu all{g};
    FMenu &menu = all.menu;
    FLstTitre &titles = all.titres;
    FCHoix &choice = all.choix;
    Fnom &names = all.nom;
    FScore2 &score = all.score;
    Fmsg1 &question = all.question;

    void install(const std::vector<Base> &bases);                  // MASK as grimbases makes it
    void write(const Texte &name, const std::string &bytes) const; // in the installed folder
    std::string bytes(const Texte &name) const;
    bool there(const Texte &name) const;

    void prepare(const Start &start); // settings, words and names stand, no game runs
    void start(const Start &start);   // and the green arrow is pressed
    void expectScore();               // the score window comes and is left without a record
    void stop();                      // "Stopper la partie"

    bool click(char letter) { return menu.VsAlpha[letter - 'A'].userClick(); }
    void propose(const std::string &letters); // by their buttons; each must take the click
    void key(char16_t character) { screen.active()->pressKey(Key::typed(character)); }
    void press(Key::Code code);
    void enter() { press(Key::enter); }
    void type(Form &form, const Texte &text);

    std::string word() const { return toUtf8(menu.AffMot[0].Caption.get()); }
    Events prompts(); // wave files asked for since the last taking of events, in order
    // The answers of the windows that a game may need.
    void expectNames(const Texte &family, const Texte &first);
    void expectTheme(int item);
};

// The events that begin with a text.
Events only(const Events &events, const std::string &beginning);

std::string shown(const Property<Texte> &text);

} // namespace grimoval::test
