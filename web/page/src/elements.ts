// Elements from texts and other elements alone: what a file says never becomes markup.
type Child = Node | string;
type Properties = Record<string, string | boolean | number | ((event: never) => void)>;

/** An element. A property that is a function listens; others are attributes. */
export function element<K extends keyof HTMLElementTagNameMap>(
  name: K,
  properties: Properties = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(properties)) {
    if (typeof value === "function") made.addEventListener(key, value as EventListener);
    else if (value === true) made.setAttribute(key, "");
    else if (value !== false) made.setAttribute(key, String(value));
  }
  made.append(...children);
  return made;
}

export function drawing(
  name: string,
  attributes: Record<string, string | number>,
  ...children: Child[]
): SVGElement {
  const made = document.createElementNS("http://www.w3.org/2000/svg", name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, String(value));
  made.append(...children);
  return made;
}

let names = 0;
export function freshId(): string {
  return `id-${++names}`;
}

/** A labelled control. */
export function labelled(text: string, control: HTMLElement): HTMLElement {
  control.id ||= freshId();
  return element("span", { class: "control" }, element("label", { for: control.id }, text), control);
}
