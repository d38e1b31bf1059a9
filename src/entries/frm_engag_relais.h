#pragma once
// frm_engag_relais: the relays of a club in a competition. On the selection
// page the person picks a team and sets, per relay event, how many relays it
// enters; "&Composition" stores those counts and shows one relay at a time:
// its swimmers in the order they swim, taken from the team's members, and its
// entry time, typed or computed from the swimmers' best times. Relais is
// written as the person goes; Relais_tempo holds the competition's relays as
// they stood at the opening, for "&Annuler".

#include "src/entries/relays.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QStringList>
#include <vector>

namespace plouvarine {

class FrmEngagRelais : public View {
public:
    static constexpr QLatin1String kName{"frm_engag_relais"};
    static inline const QString kCaptionComposition = QStringLiteral("&Composition");
    static inline const QString kCaptionSelection = QStringLiteral("&Sélection");
    static constexpr int kMaxRelays = 100;

    // `key` is the competition's AutoNum.
    FrmEngagRelais(AppContext& app, const QString& mode, const QString& key);

    const QString& mode() const { return mode_; }
    const QString& key() const { return key_; }
    bool read_only() const;
    int longueur() const { return longueur_; }

    // Reads the competition's pool, the team counts and fills cbo_team; the
    // first team is chosen.
    void RemplirInfo();

    // cbo_team: "Individuel", then the teams by kind.
    const QStringList& cbo_team() const { return teams_; }
    int team_index() const { return team_index_; }
    Team team() const;
    // Another team: the counts of the one left are stored first.
    void set_team_index(int index);

    // Lst_relais: "Epreuve", "Nb relais", one row per relay event the team may
    // enter, the event code as key; LsvInfoRelais row for row.
    QStandardItemModel& Lst_relais() { return events_; }
    QItemSelectionModel& relais_selection() { return events_selection_; }
    const std::vector<RelayCount>& LsvInfoRelais() const { return info_; }

    // txt_nb_equipe: the count of the selected event ("1" proposed when none
    // is stored). Typing or the buttons apply it to the event.
    const QString& txt_nb_equipe() const { return nb_equipe_; }
    void set_nb_equipe(const QString& text);
    // On the selection page: one relay more or less for the event. On the
    // composition page: the selected swimmer one place earlier or later.
    void cmd_plus();
    void cmd_moins();
    bool save_counts();

    // "&Composition" and back ("&Sélection").
    void cmd_composition();
    bool composition() const { return composition_; }
    const QString& composition_caption() const { return composition_ ? kCaptionSelection : kCaptionComposition; }

    // cbo_team_relais: the events in which the team has relays.
    const QStringList& cbo_team_relais() const { return relay_labels_; }
    int relay_event_index() const { return relay_event_index_; }
    void set_relay_event(int index);
    // The relay numbers of that event, "Relais 1" ..., the number as key.
    QStandardItemModel& lst_num_relais() { return numbers_; }
    QItemSelectionModel& num_selection() { return numbers_selection_; }
    // The relay on show (0 for none): the one left is saved first.
    void select_relay(int number);
    int relay_number() const { return relay_number_; }
    int nb_nageurs() const;

    // lsv_engag_relais: the relay's swimmers in order ("Nom", "Prénom",
    // "Licence", and "Club Origine" with several clubs), Licence.Num as key.
    QStandardItemModel& lsv_engag_relais() { return composition_list_; }
    QItemSelectionModel& engag_selection() { return composition_selection_; }
    // lsv_nageurs: the team's members who are not in the relay.
    QStandardItemModel& lsv_nageurs() { return members_; }
    QItemSelectionModel& nageurs_selection() { return members_selection_; }
    // Cmd_add(0) puts the selected member in the relay, at most Nb_nageurs;
    // Cmd_add(1) takes the selected swimmer out.
    void cmd_add(int index);
    bool can_add() const;

    QString txt_temps;
    // Cmd_caltps: the entry time from the swimmers' best times, or the
    // message naming those without one.
    void cmd_caltps();
    bool save_relay();

    // Command 0 "Ok" and "&Annuler".
    void cmd_ok();
    void cmd_annuler();
    // The close box keeps the work as "Ok" does; a failed save keeps the
    // window open.
    bool query_close() override;

private:
    struct RelayEvent {
        QString code;
        QString libelle;
        int nb_nageurs = 0;
        int count = 0;
    };

    void load_events();
    void load_relay_events();
    void load_members();
    void select_event(int row);
    void set_count(int row, int value);
    RelayKey relay_key() const;
    QStringList composition_nums() const;
    bool save_shown();
    void empty_tempo();
    void finish();

    QString mode_;
    QString key_;
    int longueur_ = 25;
    bool several_clubs_ = false;

    QStringList teams_;
    int team_index_ = -1;
    QStandardItemModel events_;
    QItemSelectionModel events_selection_{&events_};
    std::vector<RelayCount> info_;
    int event_row_ = -1;
    QString nb_equipe_;

    bool composition_ = false;
    std::vector<RelayEvent> relay_events_;
    QStringList relay_labels_;
    int relay_event_index_ = -1;
    QStandardItemModel numbers_;
    QItemSelectionModel numbers_selection_{&numbers_};
    int relay_number_ = 0;
    QStandardItemModel composition_list_;
    QItemSelectionModel composition_selection_{&composition_list_};
    QStandardItemModel members_;
    QItemSelectionModel members_selection_{&members_};
    bool loading_ = false;
};

// OuvrirEngagRelais: opens the relays of competition `key` under `title`;
// null when the window stands already.
FrmEngagRelais* OuvrirEngagRelais(AppContext& app, const QString& mode, const QString& key, const QString& title,
                                  const QString& caller = {});

// Makes "Choix pour engagements relais" of the competition list open the
// relays: Relais copied to Relais_tempo, then the window.
void install_relay_handoff();

}  // namespace plouvarine
