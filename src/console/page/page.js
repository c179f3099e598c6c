"use strict";

// The console's page. Everything that comes from records is set as text, never as markup.

const byId = (id) => document.getElementById(id);

const PageOfRecords = 50;
const MostRows = 500;
const CardsShown = 12;
/** The console tells no more at once. */
const MostUnsettled = 50;
const Views = ["now", "history", "send", "counts"];

let forgeryToken = null;
let events = null;
/** The newest records as far as they are known, by their numbers. */
const newest = new Map();
/** What the history is searched by. */
let filter = { text: "", state: "", day: "" };
let shownRecord = null;

// ---- Small tools

/** Makes an element. Children are elements or texts. */
function make(tag, attributes = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (value !== null && value !== false) element.setAttribute(name, value === true ? "" : value);
  }
  element.append(...children.filter((child) => child !== null));
  return element;
}

function clear(element) {
  element.replaceChildren();
  return element;
}

/** Gives a list these items. What is in it already stays where it is, with its focus. */
function arrange(list, items) {
  const kept = new Set(items);
  for (const item of [...list.children]) if (!kept.has(item)) item.remove();
  items.forEach((item, place) => {
    if (list.children[place] !== item) list.insertBefore(item, list.children[place] ?? null);
  });
}

const twoDigits = (number) => String(number).padStart(2, "0");

/** The machine's own day of a time, as a date field has it. */
function dayOf(date) {
  return `${date.getFullYear()}-${twoDigits(date.getMonth() + 1)}-${twoDigits(date.getDate())}`;
}

/** A time as people read it: today only the time. */
function timeText(iso) {
  const date = new Date(iso);
  const time = `${twoDigits(date.getHours())}:${twoDigits(date.getMinutes())}:${twoDigits(date.getSeconds())}`;
  return dayOf(date) === dayOf(new Date()) ? time : `${dayOf(date)} ${time}`;
}

function startOfDay(day, later = 0) {
  const [year, month, date] = day.split("-").map(Number);
  return new Date(year, month - 1, date + later).toISOString();
}

const Moods = { printed: "good", done: "good", alive: "good", failed: "bad", silent: "bad", missing: "bad", doubtful: "warn", void: "warn" };

function stateMark(state) {
  return make("span", { class: `state ${Moods[state] ?? ""}` }, state);
}

function valuesText(record) {
  return record.values === null ? `(${record.value_count} values, not kept)` : record.values.join(", ");
}

function short(text, most) {
  return text.length > most ? `${text.slice(0, most)} …` : text;
}

function numbersOf(record) {
  return [...new Set(record.cards.flatMap((card) => card.numbers))].join(", ");
}

// ---- Asking the console

class Refused extends Error {
  constructor(status, answer) {
    super(answer.error ?? `The console answered ${status}.`);
    this.status = status;
    this.answer = answer;
  }
}

async function ask(path, body) {
  const options = { headers: {}, cache: "no-store" };
  if (body !== undefined) {
    options.method = "POST";
    options.body = JSON.stringify(body);
    options.headers["Content-Type"] = "application/json";
    if (forgeryToken !== null) options.headers["X-Forgery-Token"] = forgeryToken;
  }
  let response;
  try {
    response = await fetch(path, options);
  } catch {
    throw new Refused(0, { error: "The console cannot be reached." });
  }
  // A refusal that is none of the console's own may be of any kind.
  const answer = await response.json().catch(() => ({}));
  if (response.ok) return answer;
  if (response.status === 401 && path !== "login") askForLogin();
  throw new Refused(response.status, answer);
}

/** Runs what a form or a button asks for, while its button waits, and tells why it failed. */
async function attempt(button, told, act) {
  // A button that is disabled would lose the focus.
  if (button.getAttribute("aria-disabled") === "true") return;
  button.setAttribute("aria-disabled", "true");
  told.textContent = "";
  told.classList.remove("problem");
  try {
    await act();
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    told.classList.add("problem");
    told.textContent = problem.message;
  } finally {
    button.removeAttribute("aria-disabled");
  }
}

// ---- Login

function showFrame(isIn) {
  for (const id of ["views", "live", "logout"]) byId(id).hidden = !isIn;
  byId("view-login").hidden = isIn;
  if (!isIn) for (const view of Views) byId(`view-${view}`).hidden = true;
}

function askForLogin() {
  forgeryToken = null;
  if (events !== null) events.close();
  events = null;
  clearTimeout(stationsSoon);
  trouble = "";
  byId("trouble").hidden = true;
  newest.clear();
  for (const dialog of [byId("ask"), byId("details")]) if (dialog.open) dialog.close();
  showFrame(false);
  document.title = "Log in – Vantrel Console";
  byId("token").focus();
}

async function begin() {
  const login = await ask("login");
  forgeryToken = login.forgery_token;
  if (forgeryToken === null) {
    askForLogin();
    return;
  }
  showFrame(true);
  showView();
  follow();
}

byId("login").addEventListener("submit", (event) => {
  event.preventDefault();
  const token = byId("token");
  attempt(event.submitter ?? event.target.querySelector("button"), byId("login-told"), async () => {
    await ask("login", { token: token.value });
    token.value = "";
    await begin();
  });
});

byId("logout").addEventListener("click", async () => {
  try {
    await ask("logout", {});
  } finally {
    askForLogin();
  }
});

// ---- Views

function presentView() {
  const name = location.hash.slice(1);
  return Views.includes(name) ? name : "now";
}

function showView(takesFocus = false) {
  if (forgeryToken === null) return;
  const present = presentView();
  for (const view of Views) byId(`view-${view}`).hidden = view !== present;
  for (const link of byId("views").querySelectorAll("a")) {
    if (link.hash === `#${present}`) link.setAttribute("aria-current", "page");
    else link.removeAttribute("aria-current");
  }
  const title = byId(`title-${present}`);
  document.title = `${title.textContent} – Vantrel Console`;
  if (takesFocus) title.focus();
  // What became of the last one is told until another page is looked at.
  byId("unsettled-told").textContent = "";
  // Before the page follows what happens, it asks for all of it anyway.
  if (present === "now" && events !== null) loadUnsettled();
  if (present === "send") loadLayouts();
  if (present === "counts") loadCounts();
}

window.addEventListener("hashchange", () => {
  if (location.hash === "#main") return;
  showView(true);
});

// ---- Live events

function tellLive(isOn) {
  const live = byId("live");
  live.classList.toggle("on", isOn);
  live.textContent = isOn ? "Live" : "Connecting …";
}

function follow() {
  tellLive(false);
  events = new EventSource("api/v1/events");
  events.addEventListener("open", () => {
    tellLive(true);
    loadStations();
    loadRecords();
    loadUnsettled();
  });
  events.addEventListener("error", () => {
    tellLive(false);
    // The browser tries again by itself, unless the console has refused it.
    if (events !== null && events.readyState === EventSource.CLOSED) {
      events = null;
      setTimeout(() => begin().catch(() => follow()), 2000);
    }
  });
  events.addEventListener("records", (event) => takeRecords(JSON.parse(event.data).records));
  events.addEventListener("more", loadAllSoon);
  events.addEventListener("trouble", (event) => {
    tellTrouble(JSON.parse(event.data).text);
    loadStations();
  });
  events.addEventListener("stations", (event) => showStations(JSON.parse(event.data).stations));
}

let trouble = "";
/** Tells why nothing can be known now, and when it can be again, asks for what came meanwhile. */
function tellTrouble(text) {
  const isOver = trouble !== "" && text === "";
  trouble = text;
  const told = byId("trouble");
  told.hidden = text === "";
  told.textContent = text === "" ? "" : `${text} The page goes on by itself.`;
  if (!isOver) return;
  // Pictures that could not be had are asked for anew.
  clear(byId("cards"));
  loadAllSoon();
}

let allSoon = null;
/** Where too many records come to be told, those who look on do not all ask at once and all the time. */
function loadAllSoon() {
  allSoon ??= setTimeout(() => {
    allSoon = null;
    loadRecords();
    loadUnsettled();
  }, 1000 + 1000 * Math.random());
}

/** For each question that waits for its answer, the records that events have told since it was asked. */
const toldSinceAsked = new Set();

/** Records in their present state: an answer may be older than what events tell while it is on its way. */
async function askRecords(path) {
  const told = new Map();
  toldSinceAsked.add(told);
  try {
    const { records } = await ask(path);
    return { records: records.map((record) => told.get(record.id) ?? record), told: [...told.values()] };
  } finally {
    toldSinceAsked.delete(told);
  }
}

const isFiltered = () => filter.text !== "" || filter.state !== "" || filter.day !== "";

function takeRecords(records) {
  for (const told of toldSinceAsked) for (const record of records) told.set(record.id, record);
  for (const record of records) newest.set(record.id, record);
  showCardsSoon();
  if (!isFiltered()) {
    for (const record of [...records].reverse()) putRow(record);
  } else {
    for (const record of records) replaceRow(record);
    searchSoon();
  }
  if (records.some(concernsUnsettled)) loadUnsettledSoon();
  if (shownRecord !== null && records.some((record) => record.id === shownRecord)) loadDetails(shownRecord);
}

// ---- Now

let stationsSoon = null;
async function loadStations() {
  try {
    showStations((await ask("api/v1/stations")).stations);
    tellTrouble("");
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    if (problem.status !== 503) return;
    tellTrouble(problem.message);
    clearTimeout(stationsSoon);
    stationsSoon = setTimeout(loadStations, 5000);
  }
}

function stationTold(station) {
  if (station.state === "missing") return "It should run, and never said that it does.";
  if (station.state === "silent") return `It last said that it runs at ${timeText(station.seen)}.`;
  if (station.state === "ended") return `It ended at ${timeText(station.seen)}.`;
  const layout = station.layout === "" ? "No layout is open" : `Layout ${station.layout}`;
  return station.printer === "" ? layout : `${layout}, printer ${station.printer}`;
}

function showStations(stations) {
  const list = clear(byId("stations"));
  for (const station of stations) {
    list.append(
      make(
        "li",
        {},
        make("div", { class: "name" }, `Session ${station.session}`, stateMark(station.state)),
        make("p", {}, station.machine),
        make("p", {}, stationTold(station)),
      ),
    );
  }
  if (stations.length === 0) list.append(make("li", {}, "No station has run here yet."));
}

async function loadUnsettled() {
  try {
    showUnsettled((await ask("api/v1/unsettled")).records);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
  }
}

/** Whether a record that came or changed may have to be listed, or need not be any longer. */
function concernsUnsettled(record) {
  return ["failed", "doubtful"].includes(record.state) || record.reprint_of !== null ||
    byId("unsettled-list").querySelector(`[data-id="${record.id}"]`) !== null;
}

let unsettledSoon = null;
function loadUnsettledSoon() {
  unsettledSoon ??= setTimeout(() => {
    unsettledSoon = null;
    loadUnsettled();
  }, 200);
}

function reasonOf(record) {
  return record.reason || record.cards.map((card) => card.reason).find((reason) => reason) || Warnings[record.state] || "";
}

function makeUnsettled(record) {
  const open = make("button", { type: "button", class: "link" }, `Record ${record.id}`);
  open.addEventListener("click", () => openDetails(record.id));
  const again = make("button", { type: "button", class: "main", "aria-label": `Print again … record ${record.id}` }, "Print again …");
  again.disabled = record.values === null;
  again.addEventListener("click", () => {
    const told = byId("unsettled-told");
    attempt(again, told, async () => {
      const added = await printAgain(record.id);
      if (added !== null) told.textContent = toldOfReprint(record.id, added);
    });
  });
  return make(
    "li",
    { "data-id": record.id },
    make("div", { class: "told" },
      make("p", {}, open, " ", stateMark(record.state), " ", make("span", { class: "who" }, valuesText(record))),
      make("p", { class: "why" }, [timeText(record.received), record.layout, reasonOf(record)].filter((text) => text).join(" · "))),
    again,
  );
}

function unsettledTitle(count) {
  if (count === 0) return "Nothing else needs you";
  if (count === 1) return "1 record needs you";
  return count < MostUnsettled ? `${count} records need you` : `${count} records and perhaps more need you`;
}

/** Shows what needs a person, and what became of it just now. */
function showUnsettled(records) {
  const list = byId("unsettled-list");
  const present = new Map([...list.children].map((item) => [item.dataset.id, item]));
  const items = records.map((record) => present.get(String(record.id)) ?? makeUnsettled(record));
  const hadFocus = list.contains(document.activeElement);
  arrange(list, items);
  byId("title-unsettled").textContent = unsettledTitle(items.length);
  byId("unsettled").classList.toggle("settled", items.length === 0);
  byId("unsettled").hidden = items.length === 0 && byId("unsettled-told").textContent === "";
  if (hadFocus && !list.contains(document.activeElement)) (list.querySelector(".main") ?? byId("title-unsettled")).focus();
}

/** Asks for the newest records and for what is searched for, which mostly are the same. */
function loadRecords() {
  loadNewest();
  if (isFiltered()) search();
}

/** Shows the newest cards and, where nothing certain is searched for, the same records in the history. */
async function loadNewest() {
  const number = isFiltered() ? null : ++searching;
  try {
    const answer = await askRecords(`api/v1/records?brief=1&limit=${PageOfRecords}`);
    newest.clear();
    for (const record of [...answer.records, ...answer.told]) newest.set(record.id, record);
    showCards();
    if (number === searching) showFound(answer);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    if (number === searching) byId("found").textContent = problem.message;
  }
}

/** The place of a picture, which tells so where there is none. */
function cardPicture(record, index, alt) {
  const place = make("span", { class: "picture" });
  const image = make("img", { alt, loading: "lazy", decoding: "async" });
  image.addEventListener("error", () => place.replaceChildren("No picture is kept."));
  image.src = `api/v1/records/${record.id}/cards/${index + 1}.png`;
  place.append(image);
  return place;
}

function newestCards() {
  for (const id of [...newest.keys()].sort((one, other) => other - one).slice(PageOfRecords)) newest.delete(id);
  const cards = [];
  for (const id of [...newest.keys()].sort((one, other) => other - one)) {
    const record = newest.get(id);
    record.cards.forEach((card, index) => {
      if (cards.length < CardsShown) cards.push({ key: `${id}/${index}`, record, card, index });
    });
  }
  return cards;
}

/** Shows the newest cards; what is shown already keeps its picture and the focus. */
function showCards() {
  const list = byId("cards");
  const present = new Map([...list.children].map((item) => [item.dataset.key, item]));
  const cards = newestCards();
  const items = cards.map(({ key, record, card, index }) => {
    const item = present.get(key) ?? makeCard(key, record, index);
    const mark = item.querySelector(".state");
    if (mark.textContent !== card.state) mark.replaceWith(stateMark(card.state));
    item.querySelector(".when").textContent = `${timeText(record.received)}, ${card.layout}`;
    return item;
  });
  arrange(list, items);
  byId("no-cards").hidden = items.length > 0;
}

const CardsRest = 500;
let cardsSoon = null;
let cardsShown = -CardsRest;
/** Where record follows record, a picture is not asked for that is replaced at once. */
function showCardsSoon() {
  cardsSoon ??= setTimeout(() => {
    cardsSoon = null;
    cardsShown = performance.now();
    showCards();
  }, Math.max(0, cardsShown + CardsRest - performance.now()));
}

function makeCard(key, record, index) {
  const who = valuesText(record);
  const button = make(
    "button",
    { type: "button" },
    cardPicture(record, index, `Card ${index + 1} of record ${record.id}`),
    make("span", { class: "what" }, make("span", { class: "who" }, who), stateMark(record.cards[index].state)),
    make("span", { class: "when" }),
  );
  button.addEventListener("click", () => openDetails(record.id));
  return make("li", { "data-key": key }, button);
}

// ---- History

function queryOf(before) {
  const query = new URLSearchParams({ brief: "1", limit: String(PageOfRecords) });
  if (filter.text !== "") query.set("text", filter.text);
  if (filter.state !== "") query.set("state", filter.state);
  if (filter.day !== "") {
    query.set("since", startOfDay(filter.day));
    query.set("until", startOfDay(filter.day, 1));
  }
  if (before !== null) query.set("before", String(before));
  return `api/v1/records?${query}`;
}

const rows = byId("records").tBodies[0];
let searching = 0;
let soon = null;

function rowOf(record) {
  const open = make("button", { type: "button", class: "link" }, String(record.id));
  const row = make(
    "tr",
    { role: "row", "data-id": record.id },
    make("th", { role: "rowheader", scope: "row" }, open),
    make("td", { role: "cell" }, stateMark(record.state)),
    make("td", { role: "cell", class: "when" }, timeText(record.received)),
    make("td", { role: "cell", class: "layout" }, record.layout),
    make("td", { role: "cell", class: "values" }, valuesText(record)),
    make("td", { role: "cell", class: "numbers" }, numbersOf(record)),
    make("td", { role: "cell", class: "source" }, record.reprint_of === null ? record.source : `again ${record.reprint_of}`),
  );
  row.addEventListener("click", () => openDetails(record.id));
  return row;
}

const rowWith = (id) => rows.querySelector(`tr[data-id="${id}"]`);

function replaceRow(record) {
  const row = rowWith(record.id);
  if (row === null) return false;
  const hadFocus = row.contains(document.activeElement);
  const next = rowOf(record);
  row.replaceWith(next);
  if (hadFocus) next.querySelector("button").focus();
  return true;
}

function putRow(record) {
  if (replaceRow(record)) return;
  const behind = [...rows.children].find((row) => Number(row.dataset.id) < record.id) ?? null;
  // One that is older than all that is shown belongs to what was not asked for yet.
  if (behind === null && rows.children.length > 0) return;
  rows.insertBefore(rowOf(record), behind);
  while (rows.children.length > MostRows) rows.lastElementChild.remove();
  tellFound();
}

function tellFound() {
  const count = rows.children.length;
  const isWhole = byId("older").hidden;
  const records = count === 1 ? "1 record" : `${count} records`;
  byId("found").textContent = count === 0 ? "No record was found." : isWhole ? `${records}.` : `The newest ${records}.`;
}

/** Shows what a search has found, behind the rows that are there where it went on from one. */
function showFound({ records, told }, before = null) {
  if (before === null) clear(rows);
  rows.append(...records.map(rowOf));
  byId("older").hidden = records.length < PageOfRecords || rows.children.length >= MostRows;
  // Where something is searched for, another search follows what events tell.
  if (!isFiltered()) for (const record of told) putRow(record);
  tellFound();
}

async function search(before = null) {
  const number = ++searching;
  try {
    const answer = await askRecords(queryOf(before));
    if (number === searching) showFound(answer, before);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("found").textContent = problem.message;
  }
}

function searchSoon() {
  if (soon !== null) return;
  soon = setTimeout(() => {
    soon = null;
    search();
  }, 1000);
}

byId("search").addEventListener("submit", (event) => {
  event.preventDefault();
  filter = { text: byId("text").value, state: byId("state").value, day: byId("day").value };
  search();
});
byId("search").addEventListener("reset", () => {
  filter = { text: "", state: "", day: "" };
  search();
});
byId("older").addEventListener("click", () => search(Number(rows.lastElementChild.dataset.id)));

// ---- One record

function pairs(entries) {
  const list = make("dl");
  for (const [name, value] of entries) {
    if (value !== "" && value !== null) list.append(make("dt", {}, name), make("dd", {}, value));
  }
  return list;
}

const PartsTold = ["value", "start", "separator", "end", "filtered", "dropped"];

/** Characters that cannot be seen are shown by their codes, as in the station's settings. */
function visible(text) {
  return text.replace(/[\u0000-\u001f\u007f]/g, (control) => `[${control.charCodeAt(0).toString(16).toUpperCase()}]`);
}

/** The first word of its name, such as "filtered". */
function classOfPart(part) {
  const word = part.split(" ")[0];
  return PartsTold.includes(word) ? `part-${word}` : null;
}

function rawView(parts) {
  const used = [...new Set(parts.map((piece) => piece.part))];
  return [
    make("h3", {}, "The record as it came"),
    make(
      "pre",
      { class: "raw", tabindex: "0", role: "region", "aria-label": "The record as it came" },
      ...parts.map((piece) => make("span", { class: classOfPart(piece.part), title: piece.part }, visible(piece.text))),
    ),
    make("p", { class: "legend" }, ...used.map((part) => make("span", { class: classOfPart(part) }, part))),
  ];
}

function cardView(record, card, index) {
  const told = [
    `Page ${card.page}, copy ${card.copy}`,
    card.layout,
    card.printer,
    card.file ?? (card.job === null ? null : `job ${card.job}`),
    card.numbers.length > 0 ? `numbers ${card.numbers.join(", ")}` : null,
    timeText(card.changed),
    card.reason,
  ].filter((text) => text);
  return make(
    "figure",
    {},
    cardPicture(record, index, `Card ${index + 1} of record ${record.id} as it was printed`),
    make("figcaption", {}, stateMark(card.state), ` ${told.join(" · ")}`),
  );
}

function detailsOf(record, parts) {
  const hasValues = record.values !== null && record.values.length > 0;
  return [
    pairs([
      ["State", stateMark(record.state)],
      ["Reason", record.reason],
      ["Received", timeText(record.received)],
      ["Source", record.source],
      ["Session", String(record.session)],
      ["Layout", record.layout],
      ["Prints again", record.reprint_of === null ? "" : `record ${record.reprint_of}`],
    ]),
    make("h3", {}, "Values"),
    hasValues
      ? make("ol", { class: "values" }, ...record.values.map((value) => make("li", {}, visible(value))))
      : make("p", { class: "note" }, record.values === null ? "The values were not kept." : "None."),
    hasValues && record.value_count > record.values.length ? make("p", { class: "note" }, `And ${record.value_count - record.values.length} more.`) : "",
    ...(parts.length > 0 ? rawView(parts) : []),
    make("h3", {}, "Cards"),
    record.cards.length > 0
      ? make("div", { class: "prints" }, ...record.cards.slice(0, 20).map((card, index) => cardView(record, card, index)))
      : make("p", { class: "note" }, "No card was begun."),
  ];
}

async function loadDetails(id) {
  const [record, { parts }] = await Promise.all([ask(`api/v1/records/${id}?brief=1`), ask(`api/v1/records/${id}/parts`)]);
  if (shownRecord !== id) return;
  byId("details-title").textContent = `Record ${id}`;
  clear(byId("details-body")).append(...detailsOf(record, parts));
  byId("reprint").disabled = record.state === "received" || record.state === "printing" || record.values === null;
  byId("void").disabled = record.state === "void" || record.state === "printing";
  byId("details").dataset.state = record.state;
}

async function openDetails(id) {
  shownRecord = id;
  byId("details-told").textContent = "";
  try {
    await loadDetails(id);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("found").textContent = problem.message;
    return;
  }
  if (!byId("details").open) byId("details").showModal();
  byId("details-body").scrollTop = 0;
  byId("details-title").focus();
}

byId("details-close").addEventListener("click", () => byId("details").close());
byId("details").addEventListener("close", () => {
  const row = shownRecord === null ? null : rowWith(shownRecord);
  shownRecord = null;
  // A row that was pressed with the mouse has no focus, and one that was drawn anew meanwhile has lost it.
  if ([document.body, byId("main")].includes(document.activeElement) && row !== null && !byId("view-history").hidden) row.querySelector("button").focus();
});

/** Asks a question whose default is No. */
function confirmed(title, text, yes, isDangerous = false) {
  byId("ask-title").textContent = title;
  byId("ask-text").textContent = text;
  byId("ask-yes").textContent = yes;
  byId("ask-yes").className = isDangerous ? "danger" : "main";
  const dialog = byId("ask");
  dialog.returnValue = "";
  dialog.showModal();
  byId("ask-no").focus();
  return new Promise((resolve) => {
    dialog.addEventListener("close", () => resolve(dialog.returnValue === "yes"), { once: true });
  });
}
byId("ask-no").addEventListener("click", () => byId("ask").close("no"));
byId("ask-yes").addEventListener("click", () => byId("ask").close("yes"));

const Warnings = {
  printed: "It was printed.",
  done: "It was printed.",
  doubtful: "It is not known whether it was printed: the station ended in between. Look for its card first.",
  void: "It was declared void.",
};

/** Asks whether a record is to be printed again, and has it done. */
async function printAgain(id) {
  const record = await ask(`api/v1/records/${id}?brief=1`);
  const { state, reprinted_as: reprint } = record;
  const before = reprint === null ? Warnings[state] : `It was printed again as record ${reprint} already.`;
  const text = [short(valuesText(record), 120), before, "The card shows the numbers of the first print."].filter((line) => line).join("\n");
  const [title, yes] = reprint === null ? [`Print record ${id} again?`, "Print again"] : [`Print record ${id} once more?`, "Print once more"];
  if (!(await confirmed(title, text, yes))) return null;
  return ask(`api/v1/records/${id}/reprint`, { again: reprint !== null });
}

function toldOfReprint(id, added) {
  const changed = added.layout_changed ? " Its layout was changed since; the card is printed as it was then." : "";
  return `Record ${id} is printed again as record ${added.id}.${changed}`;
}

byId("reprint").addEventListener("click", (event) => {
  const id = shownRecord;
  const told = byId("details-told");
  attempt(event.currentTarget, told, async () => {
    const added = await printAgain(id);
    if (added === null) return;
    told.textContent = toldOfReprint(id, added);
  });
});

byId("void").addEventListener("click", (event) => {
  const id = shownRecord;
  const told = byId("details-told");
  attempt(event.currentTarget, told, async () => {
    const waits = byId("details").dataset.state === "received" ? "It still waits to be printed and then never is.\n" : "";
    if (!(await confirmed(`Declare record ${id} void?`, `${waits}This cannot be taken back.`, "Declare void", true))) return;
    await ask(`api/v1/records/${id}/void`, {});
    await loadDetails(id);
    told.textContent = `Record ${id} is void.`;
  });
});

// ---- Send

async function loadLayouts() {
  const list = byId("layout");
  const chosen = list.value;
  try {
    const { layouts } = await ask("api/v1/layouts");
    clear(list).append(...layouts.map((name) => make("option", { value: name, selected: name === chosen }, name)));
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("sent").textContent = problem.message;
  }
}

byId("send").addEventListener("submit", (event) => {
  event.preventDefault();
  const sent = byId("sent");
  attempt(event.target.querySelector("button"), sent, async () => {
    const text = byId("values").value.replace(/\n$/, "");
    const values = text === "" ? [] : text.split("\n");
    const added = await ask("api/v1/records", { layout: byId("layout").value, values });
    byId("values").value = "";
    sent.textContent = `Sent as record ${added.id} to session ${added.session}.`;
  });
});

// ---- Counts

const period = { since: byId("since"), until: byId("until") };
{
  const today = new Date();
  period.until.value = dayOf(today);
  period.since.value = dayOf(new Date(today.getFullYear(), today.getMonth(), today.getDate() - 29));
}

async function loadCounts() {
  const told = byId("counted");
  if (period.since.value === "" || period.until.value === "") return;
  try {
    const query = new URLSearchParams({ since: startOfDay(period.since.value), until: startOfDay(period.until.value, 1) });
    const { counts } = await ask(`api/v1/counts?${query}`);
    const body = clear(byId("counts-table").tBodies[0]);
    for (const count of counts) {
      body.append(
        make(
          "tr",
          {},
          make("th", { scope: "row", class: "when" }, count.day),
          make("td", {}, count.layout),
          ...["issued", "failed", "doubtful", "void", "reprinted"].map((name) => make("td", { class: "number" }, String(count[name]))),
          make("td", {}, count.void_numbers.join(", ")),
        ),
      );
    }
    const issued = counts.reduce((sum, count) => sum + count.issued, 0);
    told.textContent = counts.length === 0 ? "No cards in this time." : issued === 1 ? "1 card was issued." : `${issued} cards were issued.`;
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    told.textContent = problem.message;
  }
}

byId("period").addEventListener("submit", (event) => {
  event.preventDefault();
  loadCounts();
});

begin().catch(() => {
  showFrame(true);
  tellLive(false);
  setTimeout(() => location.reload(), 5000);
});
