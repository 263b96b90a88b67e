#include "generator/Vocabulary.h"

#include "base/CodePage.h"

namespace Tesk {

namespace {

std::string Encoded(const char *text)
{
    return CodePage::ToBytes(QString::fromUtf8(text)).toStdString();
}

Words Encoded(const std::array<const char *, LanguageCount> &texts)
{
    Words words;
    for (std::size_t i = 0; i < LanguageCount; ++i)
        words[i] = Encoded(texts[i]);
    return words;
}

std::vector<Kind> Kinds()
{
    return {
        {Encoded({"Schere", "Scissors", "Ciseaux", "Tijeras", "Forbici"}),
         "AB",
         "/scissors",
         {"mayo-straight.svg", "metzenbaum-curved.svg", "iris-straight.svg", "spring-micro.svg"},
         {"tip-blunt.svg", "tip-sharp.svg"}},
        {Encoded({"Pinzette", "Tissue forceps", "Pince à disséquer", "Pinza de disección",
                  "Pinza anatomica"}),
         "XM",
         "/forceps",
         {"dressing-straight.svg", "tissue-toothed.svg", "adson.svg", "micro.svg"},
         {"tip-serrated.svg", "tip-toothed.svg"}},
        {Encoded(
             {"Klemme", "Clamp", "Pince hémostatique", "Pinza hemostática", "Pinza emostatica"}),
         "TK",
         "/clamps",
         {"pean-straight.svg", "kocher-curved.svg", "mosquito-curved.svg", "allis.svg"},
         {"jaw-serrated.svg"}},
        {Encoded({"Nadelhalter", "Needle holder", "Porte-aiguille", "Portaagujas", "Portaaghi"}),
         "NH",
         "/needle-holders",
         {"mayo-hegar.svg", "mathieu.svg", "castroviejo.svg"},
         {"jaw-tungsten.svg"}},
        {Encoded({"Wundhaken", "Retractor", "Écarteur", "Separador", "Divaricatore"}),
         "WH",
         "/retractors",
         {"farabeuf.svg", "langenbeck.svg", "volkmann.svg", "weitlaner.svg"},
         {"blade-sizes.svg"}},
        {Encoded({"Raspatorium", "Raspatory", "Rugine", "Periostótomo", "Scollaperiostio"}),
         "RA",
         "/bone",
         {"raspatory.svg"},
         {}},
        {Encoded({"Kürette", "Curette", "Curette", "Cureta", "Cucchiaio"}),
         "KU",
         "/bone",
         {"curette.svg"},
         {}},
        {Encoded({"Meißel", "Chisel", "Ciseau à os", "Escoplo", "Scalpello per osso"}),
         "ME",
         "/bone",
         {"osteotome.svg"},
         {}},
        {Encoded({"Knochenzange", "Bone rongeur", "Pince-gouge", "Pinza gubia", "Pinza ossivora"}),
         "KZ",
         "/bone",
         {"luer-rongeur.svg", "liston-cutter.svg"},
         {"jaw-cupped.svg"}},
        {Encoded({"Sonde", "Probe", "Sonde", "Sonda", "Sonda"}),
         "SO",
         "/various",
         {"probe.svg"},
         {}},
        {Encoded({"Saugrohr", "Suction tube", "Canule aspirante", "Cánula de aspiración",
                  "Cannula di aspirazione"}),
         "SR",
         "/various",
         {"suction-tube.svg"},
         {}},
        {Encoded({"Skalpellgriff", "Scalpel handle", "Manche de bistouri", "Mango de bisturí",
                  "Manico per bisturi"}),
         "SG",
         "/various",
         {"scalpel-handle.svg"},
         {}},
    };
}

std::vector<Words> Shapes()
{
    return {
        Encoded({"gerade", "straight", "droit", "recto", "retto"}),
        Encoded({"gebogen", "curved", "courbe", "curvo", "curvo"}),
        Encoded({"abgewinkelt", "angled", "coudé", "acodado", "angolato"}),
        Encoded(
            {"bajonettförmig", "bayonet-shaped", "en baïonnette", "en bayoneta", "a baionetta"}),
        Encoded({"stark gebogen", "strongly curved", "très courbe", "muy curvo", "molto curvo"}),
        Encoded({"S-förmig", "S-shaped", "en forme de S", "en forma de S", "a forma di S"}),
    };
}

std::vector<Words> Details()
{
    return {
        Encoded({"fein gezahnt", "finely serrated", "denture fine", "dentado fino",
                 "dentellatura fine"}),
        Encoded({"mit Hartmetalleinlage", "with carbide insert", "avec plaquettes en carbure",
                 "con plaquita de carburo", "con inserto in carburo"}),
        Encoded({"atraumatisch", "atraumatic", "atraumatique", "atraumático", "atraumatico"}),
        Encoded({"isoliert", "insulated", "isolé", "aislado", "isolato"}),
        Encoded({"kräftiges Modell", "heavy pattern", "modèle fort", "modelo fuerte",
                 "modello robusto"}),
        Encoded({"zierliches Modell", "delicate pattern", "modèle délicat", "modelo delicado",
                 "modello delicato"}),
        Encoded({"mit Sperre", "with ratchet", "avec crémaillère", "con cremallera",
                 "con cremagliera"}),
        Encoded({"für Kinder", "for children", "pour enfants", "para niños", "per bambini"}),
        Encoded(
            {"für Linkshänder", "for left-handers", "pour gauchers", "para zurdos", "per mancini"}),
        Encoded({"mattiert", "satin finish", "finition satinée", "acabado satinado",
                 "finitura satinata"}),
    };
}

std::vector<std::string> Inventors()
{
    std::vector<std::string> names;
    for (const char *name : {"Adelmann",  "Albrechtsen", "Bréval",    "Brünnecke", "Castaño",
                             "Corvàglia", "Delœuvre",    "Dörfler",   "Frappé",    "Grüner",
                             "Hallström", "Ibáñez",      "Kreßmann",  "Lindqvist", "Østberg",
                             "Quintão",   "Søndergaard", "Velásquez", "Weißhaupt", "Zúñiga"})
        names.push_back(Encoded(name));
    return names;
}

} // namespace

Vocabulary MakeVocabulary()
{
    return {Kinds(), Shapes(), Details(), Inventors(),
            Encoded({"Set", "Set", "Jeu", "Juego", "Set"})};
}

} // namespace Tesk
