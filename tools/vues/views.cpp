// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/vues/views.h"

#include "platform/qt/strings.h"
#include "tools/bases/catalogue.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>

#include <cmath>
#include <istream>
#include <ostream>

namespace grimoval::vues {

void Views::run() {
    Words words;
    while (next(words)) {
        if (words.front() == u"demarrer" && words.size() == 1) {
            help_.reset();
            play();
        } else if (words.front() == u"aide" && words.size() == 2) {
            showHelp(words[1]);
        } else if (words.front() == u"vue" && words.size() == 3 && help_) {
            keep(words);
        } else {
            prepare(words);
        }
    }
}

// The next command; false at the end of the script.
bool Views::next(Words &words) {
    std::string line;
    while (std::getline(script_, line)) {
        ++line_;
        const auto read = script::splitCommand(fromUtf8(line));
        want(read.has_value(), "guillemet sans fin");
        if (!read->empty() && !read->front().starts_with(u'#')) {
            words = *read;
            return true;
        }
    }
    return false;
}

void Views::want(bool good, const char *reason) const {
    if (!good) {
        throw Mistake{line_, reason};
    }
}

void Views::want(const script::Refusal &refusal) const {
    if (refusal) {
        throw Mistake{line_, *refusal};
    }
}

void Views::prepare(const Words &words) {
    if (words.front() == u"hasard") {
        for (std::size_t i = 1; i < words.size(); ++i) {
            const auto value = numericValue(words[i]);
            want(value && *value >= 0 && static_cast<float>(*value) < 1, "nombre hors de 0 a 1");
            random_.numbers.push_back(static_cast<float>(*value));
        }
    } else if (words.front() == u"sans" && words.size() == 2) {
        missing_.push_back(words[1]);
    } else if (words.front() == u"theme" && words.size() > 3) {
        theme_.assign(words.begin() + 1, words.end());
    } else {
        want(false, "commande inconnue");
    }
}

// The game's own data but for what was asked; the word bases are copies.
void Views::makeData(const QString &folder) const {
    const QString bases = folder + QStringLiteral("/MASK/");
    want(QDir().mkpath(bases), "dossier temporaire");
    const QDir data(data_);
    for (const QString &name : data.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        if (name != QStringLiteral("MASK")) {
            QFile::link(data.absoluteFilePath(name), folder + u'/' + name);
        }
    }
    if (!theme_.empty()) {
        outils::Theme theme{u"VUES", theme_[0], theme_[1], {}};
        for (std::size_t i = 2; i < theme_.size(); ++i) {
            theme.entrees.push_back({0, theme_[i]});
        }
        Files files;
        outils::construireBases(files, {theme}, fromQt(bases));
        return;
    }
    const QDir own(data.absoluteFilePath(QStringLiteral("MASK")));
    for (const QString &name : own.entryList(QDir::Files)) {
        QFile::copy(own.absoluteFilePath(name), bases + name);
    }
    for (const Texte &name : missing_) {
        want(QFile::remove(bases + toQt(name)), "fichier inconnu");
    }
}

// One run of the program, from its start to the command `arreter`.
void Views::play() {
    const QTemporaryDir folder;
    want(folder.isValid(), "dossier temporaire");
    makeData(folder.path());
    const Texte installed = fromQt(folder.path());

    Files files;
    Stage stage(files, installed, [this](const auto &waiting) { converse(waiting); });
    const scripted::Sink nobody = [](const std::string &) {};
    scripted::RecordedSound sound(nobody);
    scripted::RecordedDocuments documents(nobody);
    scripted::ScriptedApplication application;
    scripted::RecordedPrinter printer(nobody);
    application.folder = installed;
    application.userData = installed;
    Services services{stage.screen, files,     stage.clock, random_,
                      sound,        documents, application, printer};
    files.writeTime = [&stage] { return stage.clock.now(); };
    Globales g(services);
    FenetresDuJeu windows(g);
    stage_ = &stage;
    try {
        Main(g, windows);
    } catch (const Arret &) {
    } catch (const ProgramEnd &) {
        want(false, "le programme a pris fin");
    } catch (const Failure &failed) {
        want(false, ("echec " + std::to_string(failed.number)).c_str());
    }
    stage_ = nullptr;
    missing_.clear();
    theme_.clear();
    random_.numbers.clear();
}

void Views::showHelp(const Texte &page) {
    QFile file(data_ + QStringLiteral("/Le Grimoval.HLP"));
    want(file.open(QIODevice::ReadOnly), "pas de fichier d'aide");
    auto help = HelpFile::parse(file.readAll().toStdString());
    want(help && !help->pageFor(toUtf8(page)).empty(), "pas de telle page d'aide");
    help_ = std::make_unique<HelpWindow>(std::move(*help), data_);
    help_->ask(toQt(page));
    help_->show();
    help_->move(QGuiApplication::primaryScreen()->geometry().center() - help_->rect().center());
}

void Views::converse(const std::function<bool()> &waiting) {
    Words words;
    while (waiting()) {
        want(next(words), "il manque : arreter");
        obey(words);
    }
}

void Views::obey(const Words &words) {
    const Texte &name = words.front();
    if (name == u"arreter" && words.size() == 1) {
        throw Arret();
    }
    if (name == u"vue" && words.size() == 3) {
        keep(words);
    } else if (name == u"repondre" && words.size() == 1) {
        want(stage_->answer(), "aucun message");
    } else if (name == u"attendre" && words.size() == 2) {
        const auto seconds = numericValue(words[1]);
        want(seconds && *seconds >= 0 && *seconds < 10000, "duree");
        stage_->wheel.advance(std::llround(*seconds * 1000));
    } else if ((name == u"survoler" || name == u"viser") && words.size() == 2) {
        Control *control = script::findControl(stage_->screen, toUtf8(words[1]));
        want(control != nullptr, "controle inconnu");
        if (name == u"survoler") {
            stage_->point(control);
        } else {
            control->form().setFocus(*control);
            want(control->form().focus() == control, "commande sans prise");
        }
    } else {
        want(stage_->box() == nullptr, "un message attend");
        want(script::act(stage_->screen, words));
    }
}

// The mouse goes away with the picture.
void Views::keep(const Words &words) {
    const QString file = pictures_ + u'/' + toQt(words[1]) + QStringLiteral(".png");
    const QImage picture = stage_ != nullptr ? stage_->picture() : screenWith({help_.get()});
    want(picture.save(file, "PNG"), "image qui ne s'écrit pas");
    if (stage_ != nullptr) {
        stage_->point(nullptr);
    }
    list_ << toUtf8(words[1]) << '\t' << toUtf8(words[2]) << '\n';
}

} // namespace grimoval::vues
