// What choosing something does: it is shown if it was hidden, marked, and brought into view.
import type { ModelIndex } from './model_index.ts';
import type { StageControls } from './stage_interface.ts';
import type { Change, Store } from './store.ts';
import type { Visibility } from './visibility.ts';

export class Choice {
  readonly #store: Store;
  readonly #index: ModelIndex;
  readonly #visibility: Visibility;
  readonly #stage: StageControls;

  constructor(store: Store, index: ModelIndex, visibility: Visibility, stage: StageControls) {
    this.#store = store;
    this.#index = index;
    this.#visibility = visibility;
    this.#stage = stage;
  }

  finding(number: number): void {
    const finding = this.#store.model.findings[number];
    if (!finding) return;
    const { items, dependents, entity } = finding;
    this.#choose(items, { dependents, finding: number, entity });
  }

  difference(number: number): void {
    const difference = this.#store.model.differences[number];
    if (!difference) return;
    const { oldEntity, newEntity, items } = difference;
    this.#choose(items, { difference: number, entity: newEntity < 0 ? oldEntity : newEntity });
  }

  entity(entity: number): void {
    this.#choose([...this.#index.itemsOfEntity(entity)], { entity });
  }

  branch(node: number): void {
    const branch = this.#store.model.nodes[node];
    if (branch) this.#choose(this.#index.itemsUnder(node), { entity: branch.entity });
  }

  clear(): void {
    this.#store.set({ chosen: [] });
  }

  #choose(asked: readonly number[], more: Change): void {
    const items = this.#index.withEdges(asked);
    const { shown } = this.#store.state;
    const hidden = items.filter((item) => shown[item] === 0);
    if (hidden.length > 0) this.#visibility.setShown(hidden, true);
    this.#store.set({ chosen: items, ...more });
    const view = items.length > 0 ? items : (more.dependents ?? []);
    if (view.length > 0) this.#stage.fit(view);
  }
}
