// Which items, nodes, findings and differences belong to which entity or node.
import type { Model } from './model.ts';

/** For each key the numbers of what has it, in rising order. */
class Groups {
  readonly #starts: Uint32Array;
  readonly #members: Uint32Array;

  constructor(numKeys: number, keys: ArrayLike<number>) {
    const starts = new Uint32Array(numKeys + 1);
    const isKey = (key: number | undefined): key is number => key !== undefined && key >= 0 && key < numKeys;
    for (let i = 0; i < keys.length; ++i) {
      const key = keys[i];
      if (isKey(key)) starts[key + 1] = (starts[key + 1] ?? 0) + 1;
    }
    for (let key = 0; key < numKeys; ++key) starts[key + 1] = (starts[key + 1] ?? 0) + (starts[key] ?? 0);
    const next = starts.slice();
    this.#starts = starts;
    this.#members = new Uint32Array(starts[numKeys] ?? 0);
    for (let i = 0; i < keys.length; ++i) {
      const key = keys[i];
      if (!isKey(key)) continue;
      const place = next[key] ?? 0;
      this.#members[place] = i;
      next[key] = place + 1;
    }
  }

  of(key: number): Uint32Array {
    return key < 0 ? new Uint32Array() : this.#members.subarray(this.#starts[key], this.#starts[key + 1]);
  }
}

export class ModelIndex {
  readonly #itemsOfEntity: Groups;
  readonly #findingsOfEntity: Groups;
  readonly #children: Groups;
  readonly #itemsOfNode: Groups;
  /** Of faces that could not be triangulated. */
  readonly #edges = new Map<number, number[]>();
  readonly #differences = new Map<number, number>();
  readonly #levelNames: ReadonlyMap<number, string>;
  readonly roots: readonly number[];

  constructor(readonly model: Model) {
    const { entities, nodes, items, findings, differences, levels } = model;
    this.#itemsOfEntity = new Groups(
      entities.length,
      items.map((item) => item.entity),
    );
    this.#findingsOfEntity = new Groups(
      entities.length,
      findings.map((finding) => finding.entity),
    );
    this.#children = new Groups(
      nodes.length,
      nodes.map((node) => node.parent),
    );
    this.#itemsOfNode = new Groups(
      nodes.length,
      items.map((item) => item.node),
    );
    items.forEach((item, edge) => {
      for (const face of item.faces) {
        const triangles = items[face]?.triangles;
        if (!triangles || triangles[0] !== triangles[1]) continue;
        const edges = this.#edges.get(face);
        if (edges) edges.push(edge);
        else this.#edges.set(face, [edge]);
      }
    });
    this.roots = nodes.flatMap((node, number) => (node.parent < 0 ? [number] : []));
    this.#levelNames = new Map(levels.map((level) => [level.level, level.name]));
    differences.forEach((difference, number) => {
      for (const entity of [difference.oldEntity, difference.newEntity])
        if (entity >= 0) this.#differences.set(entity, number);
    });
  }

  itemsOfEntity(entity: number): Uint32Array {
    return this.#itemsOfEntity.of(entity);
  }

  /** These items, and the edges of faces among them that have no surface to be seen. */
  withEdges(items: readonly number[]): number[] {
    return [...new Set(items.flatMap((item) => [item, ...(this.#edges.get(item) ?? [])]))];
  }

  findingsOfEntity(entity: number): Uint32Array {
    return this.#findingsOfEntity.of(entity);
  }

  childrenOf(node: number): Uint32Array {
    return this.#children.of(node);
  }

  /** What is drawn under a node itself, for each entity but the node's own; edges stand with their faces. */
  leavesOf(node: number): ReadonlyMap<number, readonly number[]> {
    const leaves = new Map<number, number[]>();
    for (const number of this.#itemsOfNode.of(node)) {
      const item = this.model.items[number];
      if (!item || item.entity === this.model.nodes[node]?.entity) continue;
      const leaf = leaves.get(item.entity);
      if (leaf) leaf.push(number);
      else if (item.kind !== 'edge' || item.faces.length === 0) leaves.set(item.entity, [number]);
    }
    return leaves;
  }

  /** -1 where the entity is the same in both files. */
  differenceOfEntity(entity: number): number {
    return this.#differences.get(entity) ?? -1;
  }

  /** "3 (walls)". */
  levelTitle(level: number): string {
    if (level === 0) return 'no level';
    const name = this.#levelNames.get(level) ?? '';
    return name === '' ? String(level) : `${level} (${name})`;
  }

  /** The items of a branch of the tree. */
  itemsUnder(branch: number): number[] {
    const isUnder = new Uint8Array(this.model.nodes.length);
    isUnder[branch] = 1;
    // A node stands behind its parent.
    this.model.nodes.forEach((node, number) => {
      if (isUnder[node.parent] === 1) isUnder[number] = 1;
    });
    return this.model.items.flatMap((item, number) => (isUnder[item.node] === 1 ? [number] : []));
  }

  /** The labels of what a node stands in, from the root, at most the last eight. */
  pathOf(node: number): string[] {
    const path: string[] = [];
    for (let at = this.model.nodes[node]; at !== undefined && path.length < 8; at = this.model.nodes[at.parent])
      path.unshift(at.label);
    return path;
  }
}
