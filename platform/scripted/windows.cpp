// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scripted/windows.h"

namespace grimoval::scripted {

void Windows::shown(Form &form, Form * /*opener*/) {
    sink_("fenetre " + form.path() + " affichee");
}

void Windows::hidden(Form &form) { sink_("fenetre " + form.path() + " cachee"); }

void Windows::unloaded(Form &form) {
    if (wheel != nullptr) {
        wheel->forget(form);
    }
    sink_("fenetre " + form.path() + " dechargee");
}

void Windows::changed(Element &element, PropertyBase &property) {
    if (const auto *gauge = dynamic_cast<const Gauge *>(&element);
        gauge != nullptr && wheel != nullptr && &property == &gauge->EnMarche) {
        wheel->gaugeChanged(*gauge);
    }
    if (dynamic_cast<Screen *>(&element) != nullptr) {
        sink_("pointeur " + property.shown());
    } else {
        for (const std::string &line : property.lines()) {
            sink_(element.path() + "." + line);
        }
    }
}

void Windows::message(const Message &message) {
    static constexpr const char *icons[] = {"critique", "information", "exclamation"};
    sink_(std::string("message ") + icons[static_cast<int>(message.icon)] + " " +
          shownValue(message.title) + " " + shownValue(message.text));
}

void Windows::checkPicture(const Texte &path) {
    const std::string content = files_.read(path); // fails with 53 for a missing file
    const std::string_view start = content;
    if (!start.starts_with("\xFF\xD8") && !start.starts_with("BM") &&
        !start.starts_with("\x89PNG")) {
        throw Failure(failure::invalidPicture);
    }
}

} // namespace grimoval::scripted
